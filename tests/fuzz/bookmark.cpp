#include "Fuzz.h"
#include "platform/linux/FolderGrant.h"

#include <QCryptographicHash>

// The input is the body of bytes whose checksum is right, which chance would not hit. What is read
// must say the same when it is written and read again, and name one absolute place.
void check(const QByteArray& bytes) {
  const QByteArray whole = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256) + bytes;
  const auto grant = orvex::FolderGrant::fromBytes(whole);
  if (grant && (grant->toBytes() != whole || !grant->path.startsWith('/') ||
                grant->path.contains("/../") || grant->path.contains('\0')))
    std::abort();
}
