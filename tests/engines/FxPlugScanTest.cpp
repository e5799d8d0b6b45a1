#include "base/FileUrl.h"
#include "engines/FxPlugScan.h"
#include "support/TemporaryTree.h"

#include <gmock/gmock.h>

using namespace orvex;

namespace {

QByteArray text(const QByteArray& key, const QByteArray& value) {
  return "<key>CFBundle" + key + "</key><string>" + value + "</string>";
}

QList<FxPlugItem> scan(const TemporaryTree& tree) {
  return scanFxPlugs(tree.root(), {}, {QLocale(QLocale::English), {}}).items;
}

void bundle(const TemporaryTree& tree, const QByteArray& path, const QByteArray& info) {
  tree.file(path + "/Contents/Info.plist",
            "<plist version=\"1.0\"><dict>" + info + "</dict></plist>");
  tree.file(path + "/Contents/MacOS/program");
}

TEST(FxPlugScan, TakesIdentityNameAndVersionFromTheBundle) {
  const QByteArray number = "<integer>3</integer>";
  const struct {
    const char* name;
    QByteArray info;
    // Nothing for the bundle's path.
    const char16_t* id;
    const char16_t* shown;
    const char16_t* version;
  } rows[]{
      {"all",
       text("Identifier", "com.x") + text("DisplayName", "Shown") + text("Name", "Glow") +
           text("ShortVersionString", "1.2"),
       u"com.x", u"Shown", u"1.2"},
      {"without a display name", text("Name", "Glow"), nullptr, u"Glow", u"—"},
      {"empty display name", text("DisplayName", "") + text("Name", "Glow"), nullptr, u"", u"—"},
      {"no names", text("Identifier", "com.x"), u"com.x", u"My Glow", u"—"},
      {"no texts",
       "<key>CFBundleIdentifier</key>" + number + "<key>CFBundleDisplayName</key>" + number +
           "<key>CFBundleShortVersionString</key>" + number + text("Name", "Glow"),
       nullptr, u"Glow", u"—"},
      {"empty version", text("ShortVersionString", ""), nullptr, u"My Glow", u""},
      {"empty identifier", text("Identifier", ""), nullptr, u"My Glow", u"—"},
      {"damaged", "<dict>", nullptr, u"My Glow", u"—"},
  };
  for (const auto& row : rows) {
    const TemporaryTree tree;
    bundle(tree, "My Glow.fxplug", row.info);
    const QString id = row.id ? QString::fromUtf16(row.id) : tree.text("My Glow.fxplug");
    EXPECT_THAT(scan(tree),
                testing::ElementsAre(FxPlugItem{id, QString::fromUtf16(row.shown), id,
                                                QString::fromUtf16(row.version),
                                                QUrl::fromLocalFile(tree.text("My Glow.fxplug"))}))
        << row.name;
  }
}

TEST(FxPlugScan, ListsFoldersAndEntersAllButPackages) {
  const TemporaryTree tree;
  bundle(tree, "Plain/Deeper/Glow.fxplug", text("Name", "Glow"));
  bundle(tree, "Odd.thing", text("Name", "Odd"));
  tree.file("Old.plugin/inside/x");
  tree.file("file.fxplug");
  tree.link("link.fxplug", "Old.plugin");
  tree.folder(".hidden/x");
  QStringList names;
  for (const auto& item : scan(tree)) names.append(item.name);
  EXPECT_EQ(names.join(u' '), u"Deeper Glow Odd Old Plain");
}

TEST(FxPlugScan, OfTheSameIdentifierTheLastCounts) {
  const TemporaryTree tree;
  for (const char* place : {"a", "c", "b"})
    bundle(tree, QByteArray(place) + "/Glow.fxplug",
           text("Identifier", "com.x") + text("Name", place));
  QStringList names;
  for (const auto& item : scan(tree)) names.append(item.name + u'=' + item.id.section(u'/', -1));
  EXPECT_EQ(names.join(u' '), u"a=a b=b c=c c=com.x");
}

TEST(FxPlugScan, PassesOverWhatCannotBeReadAndKeepsOddNames) {
  const TemporaryTree tree;
  tree.folder("locked");
  tree.folder("\xFF.fxplug");
  tree.folder("\xFE.fxplug");
  ::chmod(tree.path("locked").constData(), 0);
  const OrdinaryUser user(tree);
  const auto found = scanFxPlugs(tree.root(), {}, {QLocale(QLocale::English), {}});
  EXPECT_EQ(found.skippedFolders, 1);
  QByteArrayList paths;
  for (const auto& item : found.items) paths.append(filePath(item.fileURL));
  EXPECT_THAT(paths,
              testing::UnorderedElementsAre(tree.path("\xFF.fxplug"), tree.path("\xFE.fxplug")));
}

}  // namespace
