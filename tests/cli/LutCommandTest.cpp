#include "LutRequest.h"
#include "support/Program.h"
#include "support/TemporaryTree.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace orvex;
using namespace Qt::StringLiterals;
using Verb = LutRequest::Verb;

namespace {

class LutCommand : public testing::Test {
 protected:
  LutCommand() {
    qputenv("XDG_DATA_HOME", tree.path("data"));
    tree.file("Pack/a.cube", "LUT_3D_SIZE 2\n0 0 0\n");
  }
  ~LutCommand() override { qunsetenv("ORVEX_HOST"); }

  static ProgramResult lut(const QStringList& arguments) {
    return runProgram(QStringLiteral(ORVEX_PROGRAM), QStringList{u"lut"_s} + arguments);
  }
  [[nodiscard]] QStringList words(const QString& verb, const QString& source) const {
    return {verb, tree.text(source.toUtf8()), u"--root"_s, tree.text("Pack")};
  }
  static QJsonObject json(const ProgramResult& result) {
    return QJsonDocument::fromJson(result.output.toUtf8()).object();
  }

  const TemporaryTree tree;
};

TEST_F(LutCommand, ReadsItsArguments) {
  const QByteArray here = QDir::currentPath().toUtf8();
  EXPECT_EQ(LutRequest::parse({u"prepare"_s, u"a.cube"_s, u"--root"_s, u"/r"_s}),
            (LutRequest{Verb::Prepare, here + "/a.cube", "/r"}));
  EXPECT_EQ(LutRequest::parse({u"--json"_s, u"--library"_s, u"l"_s, u"--root"_s, u"r"_s,
                               u"prepare"_s, u"/a.cube"_s}),
            (LutRequest{Verb::Prepare, "/a.cube", here + "/r", here + "/l", true}));
  const std::pair<const char*, const char16_t*> rows[]{
      {"", u"Ne yapılacağını"},
      {"copy a --root r", u"\"copy\" anlaşılmadı"},
      {"prepare", u"Bir LUT dosyası"},
      {"prepare a", u"--root ile"},
      {"prepare a --root", u"\"--root\" bir değer"},
      {"prepare a b --root r", u"\"b\" fazla"},
      {"prepare a --root r --force", u"\"--force\" diye"},
      {"apply a --root r --library l", u"--library yalnız"},
  };
  for (const auto& [arguments, reason] : rows) {
    const auto request =
        LutRequest::parse(QString::fromLatin1(arguments).split(u' ', Qt::SkipEmptyParts));
    ASSERT_FALSE(request) << arguments;
    EXPECT_TRUE(request.error().contains(QStringView(reason))) << request.error();
  }
  EXPECT_EQ(lut({u"prepare"_s}).exitCode, 2);
}

TEST_F(LutCommand, PreparesIntoTheLibraryAskedFor) {
  const ProgramResult own = lut(words(u"prepare"_s, u"Pack/a.cube"_s) + QStringList{u"--json"_s});
  EXPECT_EQ(own.exitCode, 0) << own.errors;
  const QString path = json(own)[u"path"].toString();
  EXPECT_TRUE(path.startsWith(tree.text("data/Vantrelo Orvex/FinalCut/Managed LUTs/"))) << path;
  EXPECT_TRUE(QFile::exists(path));
  const ProgramResult other =
      lut(words(u"prepare"_s, u"Pack/a.cube"_s) + QStringList{u"--library"_s, tree.text("L/")});
  EXPECT_TRUE(other.output.startsWith(tree.text("L/"))) << other.output;
  EXPECT_TRUE(QFile::exists(other.output.trimmed()));
  const ProgramResult refused = lut(words(u"prepare"_s, u"Pack"_s));
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_TRUE(refused.errors.contains(u"paket klasörü dışında"));
  EXPECT_EQ(refused.output, u"");
}

TEST_F(LutCommand, AppliesThroughTheHelperItLiesIn) {
  qputenv("ORVEX_HOST", "none");
  const ProgramResult answered =
      lut(words(u"apply"_s, u"Pack/a.cube"_s) + QStringList{u"--json"_s});
  EXPECT_EQ(answered.exitCode, 1);
  EXPECT_EQ(answered.errors, u"");
  EXPECT_EQ(json(answered)[u"succeeded"], false);
  EXPECT_TRUE(json(answered)[u"message"].toString().contains(u"2. satır")) << answered.output;
  const ProgramResult failed = lut(words(u"apply"_s, u"Pack/gone.cube"_s));
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_TRUE(failed.errors.contains(u"gone.cube")) << failed.errors;
}

}  // namespace
