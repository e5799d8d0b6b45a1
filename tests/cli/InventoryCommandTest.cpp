#include "InventoryCommand.h"
#include "support/TemporaryTree.h"

#include <QProcess>

using namespace orvex;

namespace {

struct Ended {
  int code = -1;
  QString output;
  QString error;
};

class InventoryCommandTest : public testing::Test {
 protected:
  [[nodiscard]] Ended run(const QStringList& arguments) const {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), tree.text("cache"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ORVEX_PROGRAM), arguments);
    EXPECT_TRUE(process.waitForFinished());
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
  }

  [[nodiscard]] static QJsonArray items(const Ended& ended) {
    return QJsonDocument::fromJson(ended.output.toUtf8()).array();
  }

  TemporaryTree tree;
};

TEST_F(InventoryCommandTest, PrintsEveryFieldAsJson) {
  tree.file("r/sub/b.cube", "TITLE \"Film Look\"\nLUT_3D_SIZE 33\n");
  tree.file("r/A.cube");
  tree.file("r/T/C/N/N.moti");
  tree.file("r/T/C/N/small.png");
  tree.file("f/G.fxplug/Contents/Info.plist",
            "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>com.x</string>"
            "</dict></plist>");
  const auto json = [](const QByteArray& text) { return QJsonDocument::fromJson(text).array(); };
  const QByteArray root = tree.root();
  const struct {
    QString command;
    const char* folder;
    QByteArray expected;
  } rows[]{
      {QStringLiteral("luts"), "r",
       R"([{"id": "A.cube", "name": "A", "title": null, "dimension": "CUBE", "path": "ROOT/r/A.cube"},
           {"id": "sub/b.cube", "name": "b", "title": "Film Look", "dimension": "3D 33",
            "path": "ROOT/r/sub/b.cube"}])"},
      {QStringLiteral("motion"), "r",
       R"([{"id": "T/C/N/N.moti", "name": "N", "kind": "title", "category": "C",
            "path": "ROOT/r/T/C/N/N.moti", "previewPath": "ROOT/r/T/C/N/small.png"}])"},
      {QStringLiteral("fxplug"), "f",
       R"([{"id": "com.x", "name": "G", "bundleIdentifier": "com.x", "version": "—",
            "path": "ROOT/f/G.fxplug"}])"},
      {QStringLiteral("fxplug"), "f/G.fxplug/Contents", "[]"},
  };
  for (const auto& row : rows) {
    const Ended ended = run({row.command, QStringLiteral("--json"), tree.text(row.folder)});
    EXPECT_EQ(ended.code, 0);
    EXPECT_EQ(ended.error, QString());
    EXPECT_EQ(items(ended), json(QByteArray(row.expected).replace("ROOT", root)))
        << qPrintable(ended.output);
  }
}

TEST_F(InventoryCommandTest, PrintsATableForPeople) {
  tree.file("Gece\x1b[2J.cube", "TITLE \"Film Look\"\nLUT_3D_SIZE 33\n");
  tree.file("A.cube");
  const Ended ended = run({QStringLiteral("luts"), tree.text(".")});
  EXPECT_EQ(ended.code, 0);
  EXPECT_EQ(ended.output, QStringLiteral("Ad        Boyut  Başlık     Dosya\n"
                                         "A         CUBE   —          A.cube\n"
                                         "Gece\uFFFD[2J  3D 33  Film Look  Gece\uFFFD[2J.cube\n"));
  EXPECT_EQ(run({QStringLiteral("motion"), tree.text(".")}).output,
            QStringLiteral("Bu klasörde listelenecek bir şey yok.\n"));
}

TEST_F(InventoryCommandTest, SaysWhatIsWrong) {
  tree.file("file");
  const struct {
    QStringList arguments;
    int code;
    QString fragment;
  } rows[]{
      {{}, WrongUsage, QStringLiteral("Kullanım: orvex luts DIR [--json]")},
      {{QString()}, WrongUsage, QStringLiteral("Hangi klasörün")},
      {{QStringLiteral("a"), QStringLiteral("b")}, WrongUsage, QStringLiteral("\"b\" fazla.")},
      {{QStringLiteral("--xml"), QStringLiteral("a")},
       WrongUsage,
       QStringLiteral("\"--xml\" diye bir seçenek yok.")},
      {{tree.text("missing")}, Failed, QStringLiteral("klasörü bulunamadı")},
      {{tree.text("file")}, Failed, QStringLiteral("bir klasör değil")},
  };
  for (const auto& row : rows) {
    const Ended ended = run(QStringList{QStringLiteral("luts")} + row.arguments);
    EXPECT_EQ(ended.code, row.code) << qPrintable(row.fragment);
    EXPECT_TRUE(ended.error.contains(row.fragment)) << qPrintable(ended.error);
    EXPECT_EQ(ended.output, QString());
  }
}

TEST(InventoryRequest, NamesTheFolderAbsolutely) {
  const TemporaryTree tree;
  tree.folder("real");
  tree.link("link", "real");
  const auto folderOf = [](const QString& argument) {
    return InventoryRequest::parse(QStringLiteral("luts"), {argument})->folder;
  };
  const QByteArray root = QFileInfo(tree.text(".")).canonicalFilePath().toUtf8();
  EXPECT_EQ(folderOf(tree.text("link/../link/")), root + "/real");
  EXPECT_EQ(folderOf(QStringLiteral(".")), QDir::currentPath().toUtf8());
  EXPECT_EQ(folderOf(QStringLiteral("missing")), QDir::currentPath().toUtf8() + "/missing");
}

}  // namespace
