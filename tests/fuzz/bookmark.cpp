#include "platform/linux/FolderGrant.h"

#include <QCryptographicHash>

#include <cstdlib>

// What is read must say the same when it is written and read again, and name one absolute place.
static void check(const QByteArray& bytes) {
  const auto grant = orvex::FolderGrant::fromBytes(bytes);
  if (!grant) return;
  if (grant->toBytes() != bytes || !grant->path.startsWith('/') || grant->path.contains("/../") ||
      grant->path.contains('\0'))
    std::abort();
}

// The input as it is, and as the body of bytes whose checksum is right, which chance would not hit.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  check(bytes);
  check(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256) + bytes);
  return 0;
}
