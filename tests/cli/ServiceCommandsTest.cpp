#include "CommandLine.h"
#include "support/TestCloud.h"

#include <csignal>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

class ServiceCommands : public CommandLine {
 protected:
  ServiceCommands() {
    qputenv("ORVEX_SERVICE", cloud.server.url("").toEncoded());
    qputenv("ORVEX_CA_FILE", cloud.server.caFile().toUtf8());
    cloud.pack(u"film"_s, u"Film\x1b"_s, u"2"_s, "cube");
    cloud.publishCatalog();
  }

  TestCloud cloud;
};

TEST_F(ServiceCommands, SayWhichReleaseIsTheNewest) {
  cloud.release(u"99.1"_s, {{u"notesURL"_s, u"not a url"_s}, {u"publishedAt"_s, u"2026-01-02"_s}});
  EXPECT_EQ(json(u"release --json"_s).object(),
            (QJsonObject{{u"version"_s, u"99.1"_s},
                         {u"updateAvailable"_s, true},
                         {u"downloadURL"_s, u"https://orvex.example/indir"_s},
                         {u"notesURL"_s, QJsonValue()},
                         {u"publishedAt"_s, u"2026-01-02"_s},
                         {u"mandatory"_s, false}}));
  cloud.release(u"0.0.1"_s);
  EXPECT_TRUE(run(u"release"_s).output.startsWith(u"Vantrelo Orvex güncel.\n"));
  cloud.server.answer(TestCloud::kManifest, 503, {});
  const ProgramResult failed = run(u"release --json"_s);
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_EQ(failed.errors, u"Release Center HTTP 503\n"_s);
  EXPECT_EQ(failed.output, QString());
  qunsetenv("ORVEX_CA_FILE");
  EXPECT_TRUE(run(u"release"_s).errors.contains(u"güvenilmiyor"));
}

TEST_F(ServiceCommands, InstallListAndRemovePacks) {
  const auto listed = [](const QJsonValue& installedVersion) {
    return QJsonArray{QJsonObject{{u"id"_s, u"film"_s},
                                  {u"name"_s, u"Film\x1b"_s},
                                  {u"version"_s, u"2"_s},
                                  {u"installedVersion"_s, installedVersion},
                                  {u"bytes"_s, 4},
                                  {u"files"_s, QJsonArray{u"look.cube"_s}}}};
  };
  EXPECT_EQ(json(u"packs --json"_s).array(), listed({}));
  EXPECT_EQ(run(u"packs installed"_s).output, u"Kurulu pack yok.\n"_s);
  EXPECT_EQ(run(u"packs install film"_s).output, u"Film\ufffd yüklendi.\n"_s);
  EXPECT_EQ(json(u"packs list --json"_s).array(), listed(u"2"_s));
  const QJsonObject record{{u"id"_s, u"film"_s},
                           {u"name"_s, u"Film\x1b"_s},
                           {u"version"_s, u"2"_s},
                           {u"path"_s, tree.text("Vantrelo Orvex/FinalCut/UniversalPacks/film/2")},
                           {u"files"_s, QJsonArray{u"look.cube"_s}}};
  EXPECT_EQ(json(u"packs installed --json"_s).array(), QJsonArray{record});
  EXPECT_EQ(json(u"packs install film --json"_s).object(), record);
  EXPECT_EQ(run(u"packs uninstall film"_s).output, u"Film\ufffd kaldırıldı.\n"_s);
  EXPECT_EQ(run(u"packs uninstall film"_s).output, u"\"film\" kurulu değil.\n"_s);

  const ProgramResult unknown = run(u"packs install x"_s);
  EXPECT_EQ(unknown.exitCode, 1);
  EXPECT_TRUE(unknown.errors.contains(u"\"x\" kimlikli bir pack yok"));
  cloud.server.answer("/files/film", 200, "CUBE");
  const ProgramResult changed = run(u"packs install film"_s);
  EXPECT_EQ(changed.exitCode, 1);
  EXPECT_EQ(changed.errors, u"SHA-256 doğrulaması başarısız: look.cube\n"_s);
}

TEST_F(ServiceCommands, LeaveNothingOfAnInstallThatIsInterrupted) {
  cloud.hold(u"film"_s);
  for (const int signal : {SIGINT, SIGTERM}) {
    const qsizetype before = cloud.server.requests().size();
    QProcess process;
    process.start(QStringLiteral(ORVEX_PROGRAM), words(u"packs install film"_s));
    ASSERT_TRUE(waitUntil([&] { return cloud.server.requests().size() == before + 2; }));
    ::kill(static_cast<pid_t>(process.processId()), signal);
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardError(), "İptal edildi.\n");
    EXPECT_TRUE(tree.names("Vantrelo Orvex/FinalCut/UniversalPacks").isEmpty());
  }
}

TEST_F(ServiceCommands, SendARequestWithTheHostInUse) {
  cloud.server.answer(TestCloud::kRequests, 200, R"({"ok":true,"requestId":"R-1\u0007"})");
  const struct {
    const char* host;
    QString line;
    QString output;
    QString module;
  } rows[]{{"none", u"request --title T --detail D"_s, u"Talep gönderildi • R-1\ufffd\n"_s,
            u"final-cut"_s},
           {"builtin", u"request --json --module color --detail D --title T"_s,
            u"{\n    \"id\": \"R-1\\u0007\"\n}\n"_s, u"color"_s}};
  for (const auto& row : rows) {
    qputenv("ORVEX_HOST", row.host);
    EXPECT_EQ(run(row.line).output, row.output);
    const auto body = QJsonDocument::fromJson(cloud.server.requests().last().body);
    const bool isHostless = qstrcmp(row.host, "none") == 0;
    EXPECT_EQ(body[u"module"], row.module);
    EXPECT_EQ(body[u"title"], u"T"_s);
    EXPECT_EQ(body[u"diagnostics"][u"compName"].toString().isEmpty(), isHostless);
    EXPECT_EQ(body[u"diagnostics"][u"appVersion"] == u"Final Cut Pro —"_s, isHostless);
  }
}

}  // namespace
