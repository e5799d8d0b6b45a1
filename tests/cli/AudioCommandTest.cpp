#include "platform_linux/Lv2Bundles.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using namespace orvex;

namespace {

struct Outcome {
  int exitCode = -1;
  QByteArray output;
  QByteArray errors;
};

Outcome audio(const QStringList& arguments) {
  QProcess program;
  program.start(QStringLiteral(ORVEX_PROGRAM), QStringList{u"audio"_qs} + arguments);
  EXPECT_TRUE(program.waitForFinished());
  return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

TEST(AudioCommand, ListsWhatIsInstalled) {
  const Lv2Bundles bundles;
  const Outcome none = audio({});
  EXPECT_EQ(none.exitCode, 0);
  EXPECT_EQ(none.output, "Kayıtlı AU effect bulunamadı.\n");
  EXPECT_EQ(audio({u"--json"_qs}).output, "[\n]\n");

  for (const QByteArray name : {"zoo", "Ace"})
    bundles.add(QString::fromUtf8(name), "urn:" + name,
                " ; doap:name \"B\" ; doap:maintainer [ foaf:name \"" + name + "\" ]" +
                    Lv2Bundles::ports() + " .");
  bundles.write(u"broken.lv2/manifest.ttl"_qs, "@prefix");
  const Outcome listed = audio({u"--json"_qs});
  EXPECT_EQ(listed.exitCode, 0);
  EXPECT_EQ(listed.errors, "");
  const QJsonArray items = QJsonDocument::fromJson(listed.output).array();
  ASSERT_EQ(items.size(), 2);
  QJsonObject first = items[0].toObject();
  EXPECT_TRUE(first.take(u"id"_qs).toString().contains(u"-1635083896-"));
  EXPECT_EQ(first, (QJsonObject{{u"name"_qs, u"B"_qs},
                                {u"manufacturer"_qs, u"Ace"_qs},
                                {u"version"_qs, u"0.0"_qs},
                                {u"typeName"_qs, u"Plugin"_qs},
                                {u"passesAUVal"_qs, true},
                                {u"sandboxSafe"_qs, false}}));
  const QByteArray table = audio({}).output;
  EXPECT_LT(table.indexOf("Ace"), table.indexOf("zoo"));
  for (const char* arguments : {"x", "--json x", "--json --json"}) {
    const Outcome refused = audio(QString::fromUtf8(arguments).split(u' '));
    EXPECT_EQ(refused.exitCode, 2) << arguments;
    EXPECT_TRUE(refused.errors.contains("orvex audio [--json]")) << arguments;
    EXPECT_EQ(refused.output, "") << arguments;
  }
}

}  // namespace
