#include "platform_linux/Lv2Bundles.h"
#include "support/Program.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace orvex;

namespace {

ProgramResult audio(const QStringList& arguments) {
  return runProgram(QStringLiteral(ORVEX_PROGRAM), QStringList{u"audio"_qs} + arguments);
}

TEST(AudioCommand, ListsWhatIsInstalled) {
  const Lv2Bundles bundles;
  const ProgramResult none = audio({});
  EXPECT_EQ(none.exitCode, 0);
  EXPECT_EQ(none.output, u"Kayıtlı AU effect bulunamadı.\n");
  EXPECT_EQ(audio({u"--json"_qs}).output, u"[\n]\n");

  for (const QByteArray name : {"zoo", "Ace"})
    bundles.add(QString::fromUtf8(name), "urn:" + name,
                " ; doap:name \"B\" ; doap:maintainer [ foaf:name \"" + name + "\" ]" +
                    Lv2Bundles::ports() + " .");
  bundles.write(u"broken.lv2/manifest.ttl"_qs, "@prefix");
  const ProgramResult listed = audio({u"--json"_qs});
  EXPECT_EQ(listed.exitCode, 0);
  EXPECT_EQ(listed.errors, u"");
  const QJsonArray items = QJsonDocument::fromJson(listed.output.toUtf8()).array();
  ASSERT_EQ(items.size(), 2);
  QJsonObject first = items[0].toObject();
  EXPECT_TRUE(first.take(u"id"_qs).toString().contains(u"-1635083896-"));
  EXPECT_EQ(first, (QJsonObject{{u"name"_qs, u"B"_qs},
                                {u"manufacturer"_qs, u"Ace"_qs},
                                {u"version"_qs, u"0.0"_qs},
                                {u"typeName"_qs, u"Plugin"_qs},
                                {u"passesAUVal"_qs, true},
                                {u"sandboxSafe"_qs, false}}));
  const QString table = audio({}).output;
  EXPECT_LT(table.indexOf(u"Ace"), table.indexOf(u"zoo"));
  for (const char* arguments : {"x", "--json x", "--json --json"}) {
    const ProgramResult refused = audio(QString::fromUtf8(arguments).split(u' '));
    EXPECT_EQ(refused.exitCode, 2) << arguments;
    EXPECT_TRUE(refused.errors.contains(u"orvex audio [--json]")) << arguments;
    EXPECT_EQ(refused.output, u"") << arguments;
  }
}

}  // namespace
