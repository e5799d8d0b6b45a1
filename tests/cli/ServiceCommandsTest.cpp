#include "support/FaultServer.h"
#include "support/Program.h"
#include "support/TemporaryTree.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>
#include <gmock/gmock.h>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

class ServiceCommands : public testing::Test {
 protected:
  void SetUp() override {
    qputenv("ORVEX_SERVICE", server.url("").toEncoded());
    qputenv("ORVEX_CA_FILE", server.caFile().toUtf8());
    qputenv("ORVEX_HOST", "none");
    qputenv("XDG_DATA_HOME", tree.root());
    qputenv("LC_ALL", "C.UTF-8");
  }
  void TearDown() override {
    qunsetenv("ORVEX_SERVICE");
    qunsetenv("ORVEX_CA_FILE");
  }

  [[nodiscard]] static ProgramResult run(const char* arguments) {
    return runProgram(QStringLiteral(ORVEX_PROGRAM), QString::fromUtf8(arguments).split(u' '));
  }
  // Of a run that is to succeed.
  [[nodiscard]] static QJsonDocument json(const char* arguments) {
    const ProgramResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, QString());
    return QJsonDocument::fromJson(result.output.toUtf8());
  }

  void publish(const QByteArray& file) {
    const QByteArray digest = QCryptographicHash::hash(file, QCryptographicHash::Sha256).toHex();
    server.answer("/files/a.cube", 200, file);
    server.answer("/downloads/orvex/packs/manifest.json", 200,
                  R"({"schemaVersion":1,"revision":"r","packs":[{"schemaVersion":1,"id":"film",
                      "name":"Film\u001b","version":"2","targets":["final-cut"],"variants":{},
                      "rollback":{},"sharedAssets":[{"file":"a.cube","sha256":")" +
                      digest + R"(","bytes":)" + QByteArray::number(file.size()) + R"(,"url":")" +
                      server.url("/files/a.cube").toEncoded() + R"("}]}]})");
  }

  FaultServer server;
  const TemporaryTree tree;
};

TEST_F(ServiceCommands, SayWhichReleaseIsTheNewest) {
  constexpr auto kPath = "/downloads/finalcut/manifest.json";
  server.answer(kPath, 200,
                R"({"productId":"vantrelo-orvex-finalcut","version":"99.1","notesURL":"not a url",
                    "downloadURL":"https://x/y z","publishedAt":"2026-01-02","build":7})");
  EXPECT_EQ(json("release --json").object(), (QJsonObject{{u"version"_s, u"99.1"_s},
                                                          {u"updateAvailable"_s, true},
                                                          {u"downloadURL"_s, QJsonValue()},
                                                          {u"notesURL"_s, QJsonValue()},
                                                          {u"publishedAt"_s, u"2026-01-02"_s},
                                                          {u"mandatory"_s, false}}));
  server.answer(kPath, 200,
                R"({"productId":"vantrelo-orvex-finalcut","version":"0.0.1","mandatory":true,
                    "downloadURL":"https://x/y"})");
  EXPECT_TRUE(run("release").output.startsWith(u"Vantrelo Orvex güncel.\n"));
  server.answer(kPath, 503, {});
  const ProgramResult failed = run("release --json");
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_EQ(failed.errors, u"Release Center HTTP 503\n"_s);
  EXPECT_EQ(failed.output, QString());
  qunsetenv("ORVEX_CA_FILE");
  EXPECT_TRUE(run("release").errors.contains(u"güvenilmiyor"));
}

TEST_F(ServiceCommands, InstallListAndRemovePacks) {
  publish("cube");
  const auto listed = [](const char* installedVersion) {
    return QJsonArray{QJsonObject{
        {u"id"_s, u"film"_s},
        {u"name"_s, u"Film\x1b"_s},
        {u"version"_s, u"2"_s},
        {u"installedVersion"_s,
         installedVersion != nullptr ? QJsonValue(QLatin1String(installedVersion)) : QJsonValue()},
        {u"bytes"_s, 4},
        {u"files"_s, QJsonArray{u"a.cube"_s}}}};
  };
  EXPECT_EQ(json("packs --json").array(), listed(nullptr));
  EXPECT_EQ(run("packs installed").output, u"Kurulu pack yok.\n"_s);
  EXPECT_EQ(run("packs install film").output, u"Film\ufffd yüklendi.\n"_s);
  const QByteArray folder = "Vantrelo Orvex/FinalCut/UniversalPacks/film/2";
  EXPECT_TRUE(QFile::exists(tree.text(folder + "/a.cube")));
  EXPECT_EQ(json("packs list --json").array(), listed("2"));
  const QJsonObject record{{u"id"_s, u"film"_s},
                           {u"name"_s, u"Film\x1b"_s},
                           {u"version"_s, u"2"_s},
                           {u"path"_s, tree.text(folder)},
                           {u"files"_s, QJsonArray{u"a.cube"_s}}};
  EXPECT_EQ(json("packs installed --json").array(), QJsonArray{record});
  EXPECT_EQ(json("packs install film --json").object(), record);
  EXPECT_EQ(run("packs uninstall film").output, u"Film\ufffd kaldırıldı.\n"_s);
  EXPECT_EQ(run("packs uninstall film").output, u"\"film\" kurulu değil.\n"_s);
  EXPECT_FALSE(QFile::exists(tree.text(folder)));

  const ProgramResult unknown = run("packs install x");
  EXPECT_EQ(unknown.exitCode, 1);
  EXPECT_TRUE(unknown.errors.contains(u"\"x\" kimlikli bir pack yok"));
  server.answer("/files/a.cube", 200, "CUBE");
  const ProgramResult changed = run("packs install film");
  EXPECT_EQ(changed.exitCode, 1);
  EXPECT_EQ(changed.errors, u"SHA-256 doğrulaması başarısız: a.cube\n"_s);
}

TEST_F(ServiceCommands, LeaveNothingOfAnInstallThatIsInterrupted) {
  publish("cube");
  server.on("/files/a.cube", [](FaultServer::Peer& peer, const auto&) {
    peer.send("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\ncu");
    peer.stall();
  });
  for (const int signal : {SIGINT, SIGTERM}) {
    const qsizetype before = server.requests().size();
    QProcess process;
    process.start(QStringLiteral(ORVEX_PROGRAM), {u"packs"_s, u"install"_s, u"film"_s});
    ASSERT_TRUE(waitUntil([&] { return server.requests().size() == before + 2; }));
    ::kill(static_cast<pid_t>(process.processId()), signal);
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardError(), "İptal edildi.\n");
    EXPECT_EQ(QDir(tree.text("Vantrelo Orvex/FinalCut/UniversalPacks"))
                  .entryList(QDir::AllDirs | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList());
  }
}

TEST_F(ServiceCommands, SendARequestWithTheHostInUse) {
  server.answer("/api/orvex/requests", 200, R"({"ok":true,"requestId":"R-1\u0007"})");
  const struct {
    const char* host;
    const char* arguments;
    QString output;
    QString appVersion;
    QString module;
  } rows[]{{"none", "request --title T --detail D", u"Talep gönderildi • R-1\ufffd\n"_s,
            u"Final Cut Pro —"_s, u"final-cut"_s},
           {"builtin", "request --json --module color --detail D --title T",
            u"{\n    \"id\": \"R-1\\u0007\"\n}\n"_s, QString(), u"color"_s}};
  for (const auto& row : rows) {
    qputenv("ORVEX_HOST", row.host);
    const ProgramResult result = run(row.arguments);
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(result.output, row.output);
    const QJsonObject body = QJsonDocument::fromJson(server.requests().last().body).object();
    const QJsonObject diagnostics = body[u"diagnostics"].toObject();
    EXPECT_EQ(body[u"module"], row.module);
    EXPECT_EQ(body[u"title"], u"T"_s);
    EXPECT_EQ(diagnostics[u"compName"].toString().isEmpty(), qstrcmp(row.host, "none") == 0);
    EXPECT_TRUE(diagnostics[u"appVersion"].toString().startsWith(row.appVersion));
  }
  server.answer("/api/orvex/requests", 429, R"({"ok":false,"message":"Bekle."})");
  const ProgramResult refused = run("request --title T --detail D");
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_EQ(refused.errors, u"Bekle.\n"_s);
}

TEST_F(ServiceCommands, RefuseWrongUsageBeforeAnythingIsSent) {
  for (const char* arguments :
       {"release x", "packs remove", "packs install", "packs uninstall", "packs install a b",
        "packs list a", "packs --force", "request", "request --title T", "request --detail D",
        "request --title T --detail", "request --title T --detail D --module x",
        "request --title T --detail D x", "request --title  --detail D"}) {
    const ProgramResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 2) << arguments;
    EXPECT_TRUE(result.errors.contains(u"Kullanım: orvex ")) << result.errors;
    EXPECT_EQ(result.output, QString());
  }
  qputenv("ORVEX_SERVICE", "http://localhost");
  EXPECT_EQ(run("packs").exitCode, 2);
  EXPECT_TRUE(server.requests().isEmpty());
}

}  // namespace
