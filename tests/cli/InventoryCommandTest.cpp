#include "CommandLine.h"
#include "platform_linux/Lv2Bundles.h"

#include <QJsonArray>

TEST_F(CommandLine, PrintsInventoriesAsJson) {
  tree.file("r/sub/b.cube", "TITLE \"Film Look\"\nLUT_3D_SIZE 33\n");
  tree.file("r/A.cube");
  tree.file("r/T/C/N/N.moti");
  tree.file("r/T/C/N/small.png");
  tree.link("link", "r");
  tree.file("f/G.fxplug/Contents/Info.plist",
            "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>com.x</string>"
            "</dict></plist>");
  const Lv2Bundles bundles;
  bundles.add(
      "Ace", "urn:Ace",
      R"( ; doap:name "B" ; doap:maintainer [ foaf:name "Ace" ])" + Lv2Bundles::kPorts + " .");
  bundles.file("broken.lv2/manifest.ttl", "@prefix");
  const std::pair<QByteArray, QByteArray> rows[]{
      {"luts --json ROOT/link/../link",
       R"([{"id": "A.cube", "name": "A", "title": null, "dimension": "CUBE", "path": "ROOT/r/A.cube"},
           {"id": "sub/b.cube", "name": "b", "title": "Film Look", "dimension": "3D 33",
            "path": "ROOT/r/sub/b.cube"}])"},
      {"motion ROOT/r --json",
       R"([{"id": "T/C/N/N.moti", "name": "N", "kind": "title", "category": "C",
            "path": "ROOT/r/T/C/N/N.moti", "previewPath": "ROOT/r/T/C/N/small.png"}])"},
      {"fxplug ROOT/f --json",
       R"([{"id": "com.x", "name": "G", "bundleIdentifier": "com.x", "version": "—",
            "path": "ROOT/f/G.fxplug"}])"},
      {"fxplug ROOT/f/G.fxplug/Contents --json", "[]"},
      {"audio --json",
       R"([{"name": "B", "manufacturer": "Ace", "version": "0.0", "typeName": "Plugin",
            "passesAUVal": true, "sandboxSafe": false}])"},
  };
  for (const auto& [line, expected] : rows) {
    const auto with = [this](QByteArray text) { return text.replace("ROOT", tree.root()); };
    QJsonArray items = json(QString::fromUtf8(with(line))).array();
    if (line.startsWith("audio")) {
      QJsonObject item = items.takeAt(0).toObject();
      EXPECT_FALSE(item.take(u"id"_s).toString().isEmpty());
      items.append(item);
    }
    EXPECT_EQ(items, QJsonDocument::fromJson(with(expected)).array()) << line.constData();
  }
}

TEST_F(CommandLine, PrintsInventoriesForPeople) {
  tree.file("Gece\x1b[2J.cube", "TITLE \"Film Look\"\nLUT_3D_SIZE 33\n");
  tree.file("A.cube");
  const Lv2Bundles bundles;
  EXPECT_EQ(run(u"luts "_s + tree.text(".")).output,
            QStringLiteral("Ad        Boyut  Başlık     Dosya\n"
                           "A         CUBE   —          A.cube\n"
                           "Gece\uFFFD[2J  3D 33  Film Look  Gece\uFFFD[2J.cube\n"));
  EXPECT_EQ(run(u"motion "_s + tree.text(".")).output,
            u"Bu klasörde listelenecek bir şey yok.\n"_s);
  EXPECT_EQ(run(u"audio"_s).output, u"Kayıtlı AU effect bulunamadı.\n");
  expectFailure(u"luts "_s + tree.text("missing"), 1, u"klasörü bulunamadı");
  expectFailure(u"luts "_s + tree.text("A.cube"), 1, u"bir klasör değil");
}
