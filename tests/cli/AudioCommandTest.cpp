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
  program.start(QStringLiteral(ORVEX_PROGRAM), QStringList{QStringLiteral("audio")} + arguments);
  EXPECT_TRUE(program.waitForFinished());
  return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

TEST(AudioCommand, ListsWhatIsInstalled) {
  const Lv2Bundles bundles;
  const Outcome none = audio({});
  EXPECT_EQ(none.exitCode, 0);
  EXPECT_EQ(none.output, "Kayıtlı AU effect bulunamadı.\n");
  EXPECT_EQ(audio({QStringLiteral("--json")}).output, "[\n]\n");

  const auto add = [&](const char* name, const char* maker) {
    bundles.add(QString::fromUtf8(name), QByteArray("http://x.example/") + name,
                QByteArray(" ; doap:name \"") + name + "\" ; doap:maintainer [ foaf:name \"" +
                    maker + "\" ]" + Lv2Bundles::ports() + " .");
  };
  add("A", "zoo");
  add("B", "Ace");
  bundles.write(QStringLiteral("broken.lv2/manifest.ttl"), "@prefix");
  const Outcome listed = audio({QStringLiteral("--json")});
  EXPECT_EQ(listed.exitCode, 0);
  EXPECT_EQ(listed.errors, "");
  const QJsonArray items = QJsonDocument::fromJson(listed.output).array();
  ASSERT_EQ(items.size(), 2);
  const QJsonObject first = items[0].toObject();
  EXPECT_TRUE(first[u"id"].toString().contains(u"-1635083896-"));
  EXPECT_EQ(first[u"name"].toString(), u"B");
  EXPECT_EQ(first[u"manufacturer"].toString(), u"Ace");
  EXPECT_EQ(first[u"version"].toString(), u"0.0");
  EXPECT_EQ(first[u"typeName"].toString(), u"Plugin");
  EXPECT_EQ(first[u"passesAUVal"], QJsonValue(true));
  EXPECT_EQ(first[u"sandboxSafe"], QJsonValue(false));
  const QByteArray table = audio({}).output;
  EXPECT_LT(table.indexOf("Ace"), table.indexOf("zoo"));
}

TEST(AudioCommand, RefusesWhatItDoesNotKnow) {
  for (const char* arguments : {"x", "--jason", "--json x", "--json --json"}) {
    const Outcome refused = audio(QString::fromUtf8(arguments).split(u' '));
    EXPECT_EQ(refused.exitCode, 2) << arguments;
    EXPECT_TRUE(refused.errors.contains("orvex audio [--json]")) << arguments;
    EXPECT_EQ(refused.output, "") << arguments;
  }
}

}  // namespace
