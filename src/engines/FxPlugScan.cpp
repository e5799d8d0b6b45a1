#include "engines/FxPlugScan.h"

#include "base/Bundle.h"
#include "base/Text.h"
#include "engines/FolderScan.h"

#include <QHash>

#include <array>
#include <unistd.h>

namespace orvex {
namespace {

// Folders with these extensions are packages whatever they hold.
constexpr std::array kPackageExtensions{QByteArrayView("fxplug"),    QByteArrayView("app"),
                                        QByteArrayView("appex"),     QByteArrayView("bundle"),
                                        QByteArrayView("plugin"),    QByteArrayView("component"),
                                        QByteArrayView("pluginkit"), QByteArrayView("xpc"),
                                        QByteArrayView("vst"),       QByteArrayView("vst3")};

// A system that keeps no register of packages knows one by its look.
bool isPackage(const FileTreeEntry& entry) {
  const FileName name(entry.name());
  return std::ranges::any_of(kPackageExtensions,
                             [&](QByteArrayView known) { return name.hasExtension(known); }) ||
         ::faccessat(entry.folder, "Contents/Info.plist", F_OK, 0) == 0;
}

std::optional<QString> textOf(const QVariant& value) {
  if (value.typeId() != QMetaType::QString) return std::nullopt;
  return value.toString();
}

struct Found {
  FxPlugItem item;
  // What makes it the same bundle as another one. Paths differ even where they read the same.
  QByteArray identity;
};

Found read(const FileTreeEntry& entry, const QByteArray& path, const QStringList& languages) {
  const QString text = utf8Text(path);
  const Bundle bundle(text, entry.folder, languages);
  // Bundles with an empty identifier have nothing in common.
  const QString identifier =
      textOf(bundle.infoValue(QStringLiteral("CFBundleIdentifier"))).value_or(QString());
  auto name = textOf(bundle.localizedInfoValue(QStringLiteral("CFBundleDisplayName")));
  if (!name) name = textOf(bundle.localizedInfoValue(QStringLiteral("CFBundleName")));
  if (!name) name = utf8Text(FileName(entry.name()).stem);
  const QString id = identifier.isEmpty() ? text : identifier;
  return {{id, *name, id,
           textOf(bundle.infoValue(QStringLiteral("CFBundleShortVersionString")))
               .value_or(QStringLiteral("—")),
           path},
          identifier.isEmpty() ? path : identifier.toUtf8()};
}

}  // namespace

Inventory<FxPlugItem> scanFxPlugs(const QByteArray& root, const WorkControl& control,
                                  const ScanOptions& options) {
  const FolderScan folder(root, control);
  const QStringList languages = Bundle::userLanguages();
  QHash<QByteArray, Found> bundles;
  Inventory<FxPlugItem> inventory{{}, SearchIndex(options.locale)};
  inventory.skippedFolders = folder.walk([&](const FileTreeEntry& entry) {
    if (entry.folder < 0) return FileTree::Next::Skip;
    Found found = read(entry, folder.absolute(entry.path), languages);
    const auto known = bundles.find(found.identity);
    if (known == bundles.end() || known->item.path < found.item.path)
      bundles.insert(QByteArray(found.identity), std::move(found));
    return isPackage(entry) ? FileTree::Next::Skip : FileTree::Next::Descend;
  });
  for (Found& found : bundles) inventory.items.append(std::move(found.item));
  sortByName(inventory.items, Collation(options.locale));
  for (const FxPlugItem& item : std::as_const(inventory.items))
    inventory.search.add({item.name, item.bundleIdentifier});
  return inventory;
}

}  // namespace orvex
