#include "base/Bundle.h"
#include "shell/OrvexConfig.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <sys/stat.h>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

// A bundle whose information list holds `entry`, an XML fragment of a dictionary.
QString versionWith(const QByteArray& entry) {
  QTemporaryDir folder;
  QDir().mkpath(folder.filePath(u"Contents"_s));
  QFile file(folder.filePath(u"Contents/Info.plist"_s));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>" + entry + "</dict></plist>");
  file.close();
  return OrvexConfig::version(Bundle(folder.path()));
}

TEST(Config, VersionIsTextOfTheBundleOrTheBuildsOwn) {
  const QString own = u"0.3.13"_s;
  const struct {
    QByteArray entry;
    QString version;
  } rows[] = {
      {"<key>CFBundleShortVersionString</key><string>1.4</string>", u"1.4"_s},
      {"<key>CFBundleShortVersionString</key><string></string>", QString()},
      {"<key>CFBundleShortVersionString</key><real>2.5</real>", own},
      {"<key>CFBundleShortVersionString</key><integer>3</integer>", own},
      {"<key>CFBundleVersion</key><string>9</string>", own},
      {"<key>CFBundleShortVersionString</key><date>2020-01-01T00:00:00Z</date>", own},
      {"<key>broken", own},
      {"<key>k</key>" + QByteArray("<array>").repeated(5000) +
           QByteArray("</array>").repeated(5000),
       own},
      {QByteArray(300 * 1024, ' ') + "<key>CFBundleShortVersionString</key><string>1</string>",
       own},
  };
  for (const auto& row : rows)
    EXPECT_EQ(versionWith(row.entry), row.version) << row.entry.left(80).constData();
  EXPECT_EQ(OrvexConfig::version(Bundle(u"/nonexistent"_s)), own);
  // A list that is no file does not block.
  const QTemporaryDir folder;
  QDir().mkpath(folder.filePath(u"Contents"_s));
  ASSERT_EQ(mkfifo(qPrintable(folder.filePath(u"Contents/Info.plist"_s)), 0600), 0);
  EXPECT_EQ(OrvexConfig::version(Bundle(folder.path())), own);
}

TEST(Config, EndpointsFollowTheServiceAndRefuseWhatIsNotOne) {
  EXPECT_EQ(OrvexConfig::requestCenterURL().scheme(), u"https");
  EXPECT_EQ(OrvexConfig::requestCenterURL().path(), u"/api/orvex/requests");
  EXPECT_EQ(OrvexConfig::updateManifestURL().path(), u"/downloads/finalcut/manifest.json");
  EXPECT_EQ(OrvexConfig::packsManifestURL().path(), u"/downloads/orvex/packs/manifest.json");

  const QUrl before = OrvexConfig::requestCenterURL();
  for (const char16_t* bad :
       {u"http://localhost", u"localhost:8443", u"https://", u"https://h?x=1", u"https://h#f",
        u"https://user:secret@h", u"https://a b", u"file:///etc/passwd"}) {
    const auto used = OrvexConfig::useService(QString::fromUtf16(bad));
    ASSERT_FALSE(used) << qPrintable(QString::fromUtf16(bad));
    EXPECT_TRUE(used.error().contains(QString::fromUtf16(bad)));
  }
  EXPECT_TRUE(OrvexConfig::useService(QString()));
  EXPECT_EQ(OrvexConfig::requestCenterURL(), before);

  EXPECT_TRUE(OrvexConfig::useService(u"https://localhost:8443/base//"_s));
  EXPECT_EQ(OrvexConfig::packsManifestURL().toString(),
            u"https://localhost:8443/base/downloads/orvex/packs/manifest.json");
}

}  // namespace
