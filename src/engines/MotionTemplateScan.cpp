#include "engines/MotionTemplateScan.h"

#include "base/FileUrl.h"
#include "base/Text.h"
#include "engines/FolderScan.h"

#include <array>
#include <unistd.h>

namespace orvex {
namespace {

struct Kind {
  QByteArrayView extension;
  QStringView rawValue;
};
// In the order of the enumeration.
constexpr std::array kKinds{Kind{"moef", u"effect"}, Kind{"motn", u"generator"},
                            Kind{"moti", u"title"}, Kind{"motr", u"transition"}};

std::optional<MotionTemplateKind> kindOf(const FileName& name) {
  for (std::size_t i = 0; i < kKinds.size(); ++i)
    if (name.hasExtension(kKinds[i].extension)) return static_cast<MotionTemplateKind>(i);
  return std::nullopt;
}

constexpr const char* kPreview = "small.png";

// The path of the folder that holds `path`; empty when that is the top of the file system.
QByteArrayView folderOf(QByteArrayView path) {
  return path.first(std::max<qsizetype>(path.lastIndexOf('/'), 0));
}

}  // namespace

QString rawValue(MotionTemplateKind kind) {
  return kKinds.at(static_cast<std::size_t>(kind)).rawValue.toString();
}

QString MotionTemplateItem::category() const {
  const QByteArrayView folder = folderOf(folderOf(path));
  const QString name = utf8Text(folder.sliced(folder.lastIndexOf('/') + 1));
  return name.isEmpty() ? QStringLiteral("Uncategorized") : name;
}

std::optional<QUrl> MotionTemplateItem::previewURL() const {
  if (!hasPreview) return std::nullopt;
  return fileUrl(folderOf(path).toByteArray() + '/' + kPreview);
}

Inventory<MotionTemplateItem> scanMotionTemplates(const QByteArray& root,
                                                  const WorkControl& control,
                                                  const ScanOptions& options) {
  const FolderScan folder(root, control);
  Inventory<MotionTemplateItem> inventory{{}, SearchIndex(options.locale)};
  inventory.skippedFolders = folder.walk([&](const FileTreeEntry& entry) {
    const FileName name(entry.name());
    if (const auto kind = kindOf(name))
      inventory.items.append({{folder.root(), folder.absolute(entry.path)},
                              *kind,
                              ::faccessat(entry.parent, kPreview, F_OK, 0) == 0});
    return FileTree::Next::Descend;
  });
  sortByName<MotionTemplateItem>(inventory.items, Collation(options.locale),
                                 [](const auto& item) { return static_cast<int>(item.kind); });
  for (const MotionTemplateItem& item : std::as_const(inventory.items))
    inventory.search.add({item.name(), item.category()});
  return inventory;
}

}  // namespace orvex
