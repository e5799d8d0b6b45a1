#include "cloud/PublishedFile.h"

#include "base/FileError.h"

#include <algorithm>
#include <array>
#include <sys/stat.h>

namespace orvex {
namespace {

// Of a name that a server has no business with there is nothing to be told apart: it is not there.
bool isServed(const QByteArray& name) {
  return !name.isEmpty() && !name.startsWith('.') && !name.contains('/') && !name.contains('\0');
}

}  // namespace

std::optional<PublishedFile> PublishedFile::open(const Directory& root, const QByteArray& path) {
  QList<QByteArray> names = path.sliced(1).split('/');
  for (QByteArray& name : names) name = QByteArray::fromPercentEncoding(name);
  if (!std::ranges::all_of(names, isServed)) return std::nullopt;
  try {
    std::optional<Directory> below;
    for (const QByteArray& name : std::as_const(names).first(names.size() - 1))
      below = (below ? *below : root).folder(name);
    PublishedFile opened{(below ? *below : root).file(names.last())};
    struct stat status {};
    if (::fstat(opened.file.get(), &status) != 0) return std::nullopt;
    opened.bytes = status.st_size;
    opened.modified = qint64{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
    return opened;
  } catch (const FileError&) {
    return std::nullopt;
  }
}

QByteArray PublishedFile::entityTag() const {
  return '"' + QByteArray::number(modified, 16) + '-' + QByteArray::number(bytes, 16) + '"';
}

QByteArray mediaType(QByteArrayView name) {
  struct Type {
    QByteArrayView suffix;
    const char* type;
  };
  static constexpr std::array kTypes{Type{".json", "application/json"},
                                     Type{".txt", "text/plain; charset=utf-8"},
                                     Type{".cube", "text/plain; charset=utf-8"},
                                     Type{".png", "image/png"},
                                     Type{".jpg", "image/jpeg"},
                                     Type{".pdf", "application/pdf"},
                                     Type{".zip", "application/zip"}};
  const auto* const type =
      std::ranges::find_if(kTypes, [name](const Type& t) { return name.endsWith(t.suffix); });
  return type == kTypes.end() ? "application/octet-stream" : type->type;
}

}  // namespace orvex
