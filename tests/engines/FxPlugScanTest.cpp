#include "engines/FxPlugScan.h"

namespace {

QByteArray text(const QByteArray& key, const QByteArray& value) {
  return "<key>CFBundle" + key + "</key><string>" + value + "</string>";
}

Inventory<FxPlugItem> scan(const TemporaryTree& tree) {
  return scanFxPlugs(tree.root(), {}, {QLocale(QLocale::English), {}});
}

void bundle(const TemporaryTree& tree, const QByteArray& path, const QByteArray& info) {
  tree.file(path + "/Contents/Info.plist",
            "<plist version=\"1.0\"><dict>" + info + "</dict></plist>");
}

TEST(FxPlugScan, TakesIdentityNameAndVersionFromTheBundle) {
  const QByteArray number = "</key><integer>3</integer><key>CFBundle";
  // The information, and the identifier (nothing for the path), name and version taken from it.
  const std::tuple<QByteArray, const char16_t*, const char16_t*, const char16_t*> rows[]{
      {text("Identifier", "com.x") + text("DisplayName", "Shown") + text("Name", "Glow") +
           text("ShortVersionString", "1.2"),
       u"com.x", u"Shown", u"1.2"},
      {text("DisplayName", "") + text("Name", "Glow"), nullptr, u"", u"—"},
      {text("Identifier", "com.x"), u"com.x", u"My Glow", u"—"},
      {"<key>CFBundleIdentifier" + number + "DisplayName" + number + "ShortVersionString" + number +
           "X</key><true/>" + text("Name", "Glow"),
       nullptr, u"Glow", u"—"},
  };
  for (const auto& [info, identifier, name, version] : rows) {
    const TemporaryTree tree;
    bundle(tree, "My Glow.fxplug", info);
    const QString path = tree.text("My Glow.fxplug");
    const QString id = identifier ? QString::fromUtf16(identifier) : path;
    EXPECT_THAT(scan(tree).items,
                ElementsAre(FxPlugItem{id, QString::fromUtf16(name), id,
                                       QString::fromUtf16(version), path.toUtf8()}))
        << info.constData();
  }
}

TEST(FxPlugScan, ListsFoldersEntersAllButPackagesAndKeepsTheLastOfAnIdentifier) {
  const TemporaryTree tree;
  bundle(tree, "Plain/Deeper/Glow.fxplug", text("Name", "Glow"));
  bundle(tree, "Odd.thing", text("Name", "Odd"));
  tree.file("Old.plugin/inside/x");
  tree.file("file.fxplug");
  tree.link("link.fxplug", "Old.plugin");
  tree.folder(".hidden/x");
  for (const QByteArray place : {"a", "c", "b"})
    bundle(tree, place + "/x.fxplug", text("Identifier", "com.x") + text("Name", "of " + place));
  // Apart, though they read the same.
  tree.folder("\xFF.fxplug");
  tree.folder("\xFE.fxplug");
  QStringList names;
  for (const auto& item : scan(tree).items) names.append(item.name);
  EXPECT_EQ(names.join(u'|'), u"a|b|c|Deeper|Glow|Odd|of c|Old|Plain|\uFFFD|\uFFFD");
}

}  // namespace
