#include "engines/LUTScan.h"

#include "base/FileDescriptor.h"
#include "base/Threads.h"
#include "base/Utf8Reader.h"
#include "engines/FolderScan.h"
#include "engines/LUTHeaderCache.h"

#include <QSet>

#include <atomic>
#include <fcntl.h>
#include <sys/stat.h>
#include <vector>

namespace orvex {
namespace {

// A file of the library on its way to become an item.
struct Found {
  QByteArray path;
  LUTHeader header{};
  // Of a regular file that has to be read for its header; cleared when that says nothing lasting.
  std::optional<FileIdentity> toRead{};
};

class Scan {
 public:
  Scan(const QByteArray& root, const WorkControl& control, const ScanOptions& options)
      : folder_(root, control),
        control_(control),
        locale_(options.locale),
        cache_(options.cacheFolder + QStringLiteral("/lut-headers")) {}

  Inventory<LUTItem> run() {
    Inventory<LUTItem> inventory{{}, SearchIndex(locale_), findFiles()};
    readHeaders();
    makeItems(inventory);
    return inventory;
  }

 private:
  // Returns how many folders were passed over.
  qint64 findFiles() {
    return folder_.walk([this](const FileTreeEntry& entry) {
      if (FileName(entry.name()).hasExtension("cube")) {
        Found found{folder_.absolute(entry.path)};
        // Through a link, but never more than a look: opening a device could already do something.
        struct stat status {};
        if (::fstatat(entry.parent, entry.path.constData() + entry.nameOffset, &status, 0) == 0 &&
            S_ISREG(status.st_mode)) {
          const FileIdentity identity = FileIdentity::of(status);
          if (auto header = cache_.find(identity))
            found.header = *std::move(header);
          else
            found.toRead = identity;
        }
        found_.push_back(std::move(found));
      }
      return FileTree::Next::Descend;
    });
  }

  void readHeaders() {
    std::vector<Found*> unread;
    for (Found& found : found_)
      if (found.toRead) unread.push_back(&found);
    std::atomic<std::size_t> next = 0;
    std::atomic<qint64> done = 0;
    const auto total = static_cast<qint64>(unread.size());
    onWorkers([&] {
      Utf8Reader reader;
      for (std::size_t i = 0;
           (i = next.fetch_add(1)) < unread.size() && !control_.stop.stop_requested();) {
        read(*unread[i], reader);
        control_.report({++done, total});
      }
    });
    folder_.throwIfStopped();
    for (const Found* found : unread)
      if (found->toRead) cache_.add(*found->toRead, found->header);
    cache_.save();
  }

  void read(Found& found, Utf8Reader& reader) const {
    const FileDescriptor file(::open(found.path.constData(), kReadFile));
    struct stat status {};
    if (!file || ::fstat(file.get(), &status) != 0) {
      found.toRead.reset();
      return;
    }
    // What is read counts for the file that was opened, whatever was there before.
    found.toRead = FileIdentity::of(status);
    const auto text = reader.header(file.get(), control_.stop, LUTHeader::kLines);
    if (text)
      found.header = LUTHeader::parse(*text);
    else if (text.error() != Utf8Reader::Failure::NotUtf8)
      found.toRead.reset();
  }

  void makeItems(Inventory<LUTItem>& inventory) {
    inventory.items.reserve(static_cast<qsizetype>(found_.size()));
    // A library has few different ones.
    QSet<QString> dimensions;
    for (Found& found : found_)
      inventory.items.append({{folder_.root(), std::move(found.path)},
                              std::move(found.header.title),
                              *dimensions.insert(found.header.dimension)});
    sortByName(inventory.items, Collation(locale_));
    for (const LUTItem& item : std::as_const(inventory.items))
      inventory.search.add({item.name(), item.title.value_or(QString())});
  }

  FolderScan folder_;
  const WorkControl& control_;
  const QLocale locale_;
  LUTHeaderCache cache_;
  std::vector<Found> found_;
};

}  // namespace

Inventory<LUTItem> scanLUTs(const QByteArray& root, const WorkControl& control,
                            const ScanOptions& options) {
  return Scan(root, control, options).run();
}

}  // namespace orvex
