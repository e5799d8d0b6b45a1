#include "base/Bundle.h"
#include "shell/OrvexConfig.h"

TEST(Config, VersionIsTextOfTheBundleOrTheBuildsOwn) {
  const QString own = OrvexConfig::version(Bundle(u"/nonexistent"_s));
  EXPECT_EQ(own.count(u'.'), 2);
  const std::pair<QByteArray, QString> rows[]{
      {"<key>CFBundleShortVersionString</key><string>1.4</string>", u"1.4"_s},
      {"<key>CFBundleShortVersionString</key><string></string>", QString()},
      {"<key>CFBundleShortVersionString</key><real>2.5</real>", own},
      {"<key>CFBundleVersion</key><string>9</string>", own},
      {"<key>broken", own},
  };
  const TemporaryTree tree;
  for (const auto& [entry, version] : rows) {
    tree.file("Contents/Info.plist", "<plist version=\"1.0\"><dict>" + entry + "</dict></plist>");
    EXPECT_EQ(OrvexConfig::version(Bundle(tree.text("."))), version) << entry.constData();
  }
}

TEST(Config, EndpointsFollowTheServiceAndRefuseWhatIsNotOne) {
  const QUrl before = OrvexConfig::requestCenterURL();
  EXPECT_EQ(before.scheme(), u"https");
  for (const QString& bad :
       {u"http://localhost"_s, u"localhost:8443"_s, u"https://"_s, u"https://h?x=1"_s,
        u"https://h#f"_s, u"https://user:secret@h"_s, u"https://a b"_s, u"file:///etc/passwd"_s})
    EXPECT_FALSE(OrvexConfig::useService(bad)) << bad;
  EXPECT_TRUE(OrvexConfig::useService(QString()));
  EXPECT_EQ(OrvexConfig::requestCenterURL(), before);

  EXPECT_TRUE(OrvexConfig::useService(u"https://localhost:8443/base//"_s));
  EXPECT_EQ(OrvexConfig::requestCenterURL().path(), u"/base/api/orvex/requests");
  EXPECT_EQ(OrvexConfig::updateManifestURL().path(), u"/base/downloads/finalcut/manifest.json");
  EXPECT_EQ(OrvexConfig::packsManifestURL().toString(),
            u"https://localhost:8443/base/downloads/orvex/packs/manifest.json");
}
