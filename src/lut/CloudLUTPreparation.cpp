#include "lut/CloudLUTPreparation.h"

#include "base/ByteOrderMark.h"
#include "base/FileError.h"
#include "base/FileName.h"
#include "base/FileUrl.h"
#include "base/NewFile.h"
#include "base/Sha256.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <vector>

namespace orvex {
namespace {

using CloudLUTPreparation::PreparationError;
using Kind = PreparationError::Kind;

// Read between two looks at the stop token.
constexpr qsizetype kPiece = qsizetype{1} << 20;

constexpr QByteArrayView kSizeKeyword("LUT_3D_SIZE ");

constexpr std::array<QByteArrayView, 7> kNewlines{"\n",       "\r",           "\v",          "\f",
                                                  "\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"};

// The tab and Unicode's space separators (general category Zs): U+0020, U+00A0, U+1680, U+2000 to
// U+200A, U+202F, U+205F and U+3000.
constexpr std::array<QByteArrayView, 18> kSpaces{" ",
                                                 "\t",
                                                 "\xC2\xA0",
                                                 "\xE1\x9A\x80",
                                                 "\xE2\x80\x80",
                                                 "\xE2\x80\x81",
                                                 "\xE2\x80\x82",
                                                 "\xE2\x80\x83",
                                                 "\xE2\x80\x84",
                                                 "\xE2\x80\x85",
                                                 "\xE2\x80\x86",
                                                 "\xE2\x80\x87",
                                                 "\xE2\x80\x88",
                                                 "\xE2\x80\x89",
                                                 "\xE2\x80\x8A",
                                                 "\xE2\x80\xAF",
                                                 "\xE2\x81\x9F",
                                                 "\xE3\x80\x80"};

QString textOf(Kind kind) {
  switch (kind) {
    case Kind::InvalidSource:
      return QStringLiteral(
          "Cloud LUT dosyası eksik, geçersiz veya paket klasörü dışında. Paketi yeniden yükle.");
    case Kind::UnsupportedLUT:
      return QStringLiteral("Final Cut Custom LUT için 3D .cube dosyası gerekli.");
    case Kind::CopyFailed:
      break;
  }
  return QStringLiteral("LUT kopyası doğrulanamadı. Tekrar dene.");
}

void require(bool condition, Kind otherwise) {
  if (!condition) throw PreparationError(otherwise);
}

// Without links, "." and ".."; what is not there keeps its name.
QByteArray normalised(const QUrl& url) {
  const QByteArray path = filePath(url);
  require(!path.isEmpty(), Kind::InvalidSource);
  std::error_code error;
  const std::string normal = std::filesystem::weakly_canonical(path.toStdString(), error).string();
  if (error) throw FileError(QStringLiteral("okunamadı"), path, error.value());
  return QByteArray::fromStdString(normal);
}

void requireUsable(const struct stat& status) {
  require(S_ISREG(status.st_mode) && status.st_size >= 1 &&
              status.st_size <= CloudLUTPreparation::kMaximumBytes,
          Kind::InvalidSource);
}

// All bytes of the file `path` below the folder `root`. No part of the path is followed if it has
// become a link since it was resolved; what was looked at is what is read.
QByteArray readSource(const QByteArray& root, const QByteArray& path, const std::stop_token& stop) {
  const auto failure = [&path] { return FileError(QStringLiteral("okunamadı"), path, errno); };
  QList<QByteArray> components = path.sliced(root.size() + 1).split('/');
  const QByteArray name = components.takeLast();
  Directory folder = Directory::open(root);
  for (const QByteArray& component : std::as_const(components)) folder = folder.folder(component);

  // Before it is opened: opening a device could already do something.
  struct stat status {};
  if (::fstatat(folder.descriptor(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
    throw failure();
  requireUsable(status);
  const FileDescriptor file(
      ::openat(folder.descriptor(), name.constData(), kReadFile | O_NOFOLLOW));
  if (!file || ::fstat(file.get(), &status) != 0) throw failure();
  requireUsable(status);

  // One byte more than expected tells whether the file has grown since.
  QByteArray bytes(status.st_size + 1, Qt::Uninitialized);
  qsizetype size = 0;
  while (size < bytes.size()) {
    if (stop.stop_requested()) throw Stopped();
    const ssize_t count = ::read(file.get(), bytes.data() + size,
                                 static_cast<std::size_t>(std::min(kPiece, bytes.size() - size)));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw failure();
    if (count == 0) break;
    size += count;
  }
  require(size == status.st_size, Kind::InvalidSource);
  bytes.truncate(size);
  return bytes;
}

QByteArrayView trimmedLeft(QByteArrayView text) {
  for (;;) {
    const auto space = std::ranges::find_if(
        kSpaces, [text](QByteArrayView candidate) { return text.startsWith(candidate); });
    if (space == kSpaces.end()) return text;
    text = text.sliced(space->size());
  }
}

QByteArrayView trimmedRight(QByteArrayView text) {
  for (;;) {
    const auto space = std::ranges::find_if(
        kSpaces, [text](QByteArrayView candidate) { return text.endsWith(candidate); });
    if (space == kSpaces.end()) return text;
    text.chop(space->size());
  }
}

// Whether some line of the text, without the white space around it, begins with the keyword. Looks
// around the places where the keyword stands, which are few, rather than at every line.
bool hasSizeLine(QByteArrayView text) {
  const auto atNewline = [](auto affix) { return std::ranges::any_of(kNewlines, affix); };
  for (qsizetype at = 0; (at = text.indexOf(kSizeKeyword, at)) >= 0; at += kSizeKeyword.size()) {
    const QByteArrayView before = trimmedRight(text.first(at));
    if (!before.isEmpty() && !atNewline([before](auto end) { return before.endsWith(end); }))
      continue;
    // The keyword ends in a space that would be trimmed if nothing followed.
    const QByteArrayView after = trimmedLeft(text.sliced(at + kSizeKeyword.size()));
    if (!after.isEmpty() && !atNewline([after](auto end) { return after.startsWith(end); }))
      return true;
  }
  return false;
}

// Whether the file `name` in `folder` holds exactly `bytes`. What is no file, or not there, does
// not.
bool holds(const Directory& folder, const QByteArray& name, QByteArrayView bytes) {
  FileDescriptor file;
  try {
    file = folder.file(name);
  } catch (const FileError& error) {
    if (error.code() == ENOENT || error.code() == ELOOP || error.code() == EINVAL) return false;
    throw;
  }
  std::vector<char> piece(static_cast<std::size_t>(kPiece));
  for (;;) {
    const ssize_t count = ::read(file.get(), piece.data(), piece.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw FileError(QStringLiteral("okunamadı"), folder.path(name), errno);
    if (count == 0) return bytes.isEmpty();
    if (count > bytes.size() ||
        std::memcmp(piece.data(), bytes.data(), static_cast<std::size_t>(count)) != 0)
      return false;
    bytes = bytes.sliced(count);
  }
}

}  // namespace

PreparationError::PreparationError(Kind kind) : DescribedError(textOf(kind)), kind_(kind) {}

bool CloudLUTPreparation::isThreeDimensional(QByteArrayView bytes) {
  if (!bytes.isValidUtf8()) return false;
  if (bytes.startsWith(kByteOrderMark)) bytes = bytes.sliced(kByteOrderMark.size());
  return hasSizeLine(bytes);
}

QUrl CloudLUTPreparation::prepare(const QUrl& source, const QUrl& packRoot, const QUrl& library,
                                  const std::stop_token& stop) {
  const QByteArray path = normalised(source);
  const QByteArray root = normalised(packRoot);
  require(path.startsWith(root + '/'), Kind::InvalidSource);
  const QByteArray name = path.sliced(path.lastIndexOf('/') + 1);
  require(FileName(name).hasExtension("cube"), Kind::InvalidSource);

  const QByteArray bytes = readSource(root, path, stop);
  require(isThreeDimensional(bytes), Kind::UnsupportedLUT);
  const QByteArray digest = Sha256::of(bytes).toHex();
  if (stop.stop_requested()) throw Stopped();

  const QUrl::FormattingOptions plain = QUrl::NormalizePathSegments | QUrl::StripTrailingSlash;
  const Directory folder = Directory::make(filePath(library.adjusted(plain))).folderOrNew(digest);
  if (!holds(folder, name, bytes)) {
    replaceDurably(folder, name, bytes);
    require(holds(folder, name, bytes), Kind::CopyFailed);
  }
  return fileUrl(folder.path(name));
}

}  // namespace orvex
