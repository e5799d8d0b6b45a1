#include "InventoryCommand.h"
#include "support/Program.h"
#include "support/TemporaryTree.h"

using namespace orvex;

namespace {

class InventoryCommandTest : public testing::Test {
 protected:
  void SetUp() override {
    qputenv("XDG_CACHE_HOME", tree.path("cache"));
    qputenv("LC_ALL", "C.UTF-8");
  }
  [[nodiscard]] static ProgramResult run(const QStringList& arguments) {
    return runProgram(QStringLiteral(ORVEX_PROGRAM), arguments);
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
      {u"luts"_qs, "r",
       R"([{"id": "A.cube", "name": "A", "title": null, "dimension": "CUBE", "path": "ROOT/r/A.cube"},
           {"id": "sub/b.cube", "name": "b", "title": "Film Look", "dimension": "3D 33",
            "path": "ROOT/r/sub/b.cube"}])"},
      {u"motion"_qs, "r",
       R"([{"id": "T/C/N/N.moti", "name": "N", "kind": "title", "category": "C",
            "path": "ROOT/r/T/C/N/N.moti", "previewPath": "ROOT/r/T/C/N/small.png"}])"},
      {u"fxplug"_qs, "f",
       R"([{"id": "com.x", "name": "G", "bundleIdentifier": "com.x", "version": "—",
            "path": "ROOT/f/G.fxplug"}])"},
      {u"fxplug"_qs, "f/G.fxplug/Contents", "[]"},
  };
  for (const auto& row : rows) {
    const ProgramResult ended = run({row.command, u"--json"_qs, tree.text(row.folder)});
    EXPECT_EQ(ended.exitCode, 0);
    EXPECT_EQ(ended.errors, QString());
    EXPECT_EQ(json(ended.output.toUtf8()), json(QByteArray(row.expected).replace("ROOT", root)))
        << qPrintable(ended.output);
  }
}

TEST_F(InventoryCommandTest, PrintsATableForPeople) {
  tree.file("Gece\x1b[2J.cube", "TITLE \"Film Look\"\nLUT_3D_SIZE 33\n");
  tree.file("A.cube");
  const ProgramResult ended = run({u"luts"_qs, tree.text(".")});
  EXPECT_EQ(ended.exitCode, 0);
  EXPECT_EQ(ended.output, QStringLiteral("Ad        Boyut  Başlık     Dosya\n"
                                         "A         CUBE   —          A.cube\n"
                                         "Gece\uFFFD[2J  3D 33  Film Look  Gece\uFFFD[2J.cube\n"));
  EXPECT_EQ(run({u"motion"_qs, tree.text(".")}).output,
            u"Bu klasörde listelenecek bir şey yok.\n"_qs);
}

TEST_F(InventoryCommandTest, SaysWhatIsWrong) {
  tree.file("file");
  const struct {
    QStringList arguments;
    int code;
    QString fragment;
  } rows[]{
      {{}, WrongUsage, u"Kullanım: orvex luts DIR [--json]"_qs},
      {{QString()}, WrongUsage, u"Hangi klasörün"_qs},
      {{u"a"_qs, u"b"_qs}, WrongUsage, u"\"b\" fazla."_qs},
      {{u"--xml"_qs, u"a"_qs}, WrongUsage, u"\"--xml\" diye bir seçenek yok."_qs},
      {{tree.text("missing")}, Failed, u"klasörü bulunamadı"_qs},
      {{tree.text("file")}, Failed, u"bir klasör değil"_qs},
  };
  for (const auto& row : rows) {
    const ProgramResult ended = run(QStringList{u"luts"_qs} + row.arguments);
    EXPECT_EQ(ended.exitCode, row.code) << qPrintable(row.fragment);
    EXPECT_TRUE(ended.errors.contains(row.fragment)) << qPrintable(ended.errors);
    EXPECT_EQ(ended.output, QString());
  }
}

TEST(InventoryRequest, NamesTheFolderAbsolutely) {
  const TemporaryTree tree;
  tree.folder("real");
  tree.link("link", "real");
  const auto folderOf = [](const QString& argument) {
    return InventoryRequest::parse(u"luts"_qs, {argument})->folder;
  };
  const QByteArray root = QFileInfo(tree.text(".")).canonicalFilePath().toUtf8();
  EXPECT_EQ(folderOf(tree.text("link/../link/")), root + "/real");
  EXPECT_EQ(folderOf(u"."_qs), QDir::currentPath().toUtf8());
  EXPECT_EQ(folderOf(u"missing"_qs), QDir::currentPath().toUtf8() + "/missing");
}

}  // namespace
