#include "CommandLine.h"
#include "Interrupt.h"
#include "support/TestCloud.h"

#include <csignal>
#include <sys/wait.h>
#include <thread>

namespace {

struct ServiceCommands : CommandLine {
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
  EXPECT_EQ(json(u"release --json"_s), QJsonDocument::fromJson(R"(
      {"version": "99.1", "updateAvailable": true, "downloadURL": "https://orvex.example/indir",
       "notesURL": null, "publishedAt": "2026-01-02", "mandatory": false})"));
  cloud.release(u"0.0.1"_s);
  EXPECT_TRUE(run(u"release"_s).output.startsWith(u"Vantrelo Orvex güncel.\n"));
  cloud.server.answer(TestCloud::kManifest, 503, {});
  expectFailure(u"release --json"_s, 1, u"Release Center HTTP 503\n");
  qunsetenv("ORVEX_CA_FILE");
  expectFailure(u"release"_s, 1, u"güvenilmiyor");
}

TEST_F(ServiceCommands, InstallListAndRemovePacks) {
  const auto listed = [](const QByteArray& installedVersion) {
    return QJsonDocument::fromJson(
        R"([{"id": "film", "name": "Film\u001b", "version": "2", "bytes": 4,
             "files": ["look.cube"], "installedVersion": )" +
        installedVersion + "}]");
  };
  EXPECT_EQ(json(u"packs --json"_s), listed("null"));
  EXPECT_EQ(run(u"packs installed"_s).output, u"Kurulu pack yok.\n"_s);
  EXPECT_EQ(run(u"packs install film"_s).output, u"Film\ufffd yüklendi.\n"_s);
  EXPECT_EQ(json(u"packs list --json"_s), listed("\"2\""));
  const QByteArray record =
      R"({"id": "film", "name": "Film\u001b", "version": "2", "files": ["look.cube"], "path": ")" +
      tree.path("Vantrelo Orvex/FinalCut/UniversalPacks/film/2") + "\"}";
  EXPECT_EQ(json(u"packs installed --json"_s), QJsonDocument::fromJson('[' + record + ']'));
  EXPECT_EQ(json(u"packs install film --json"_s), QJsonDocument::fromJson(record));
  EXPECT_EQ(run(u"packs uninstall film"_s).output, u"Film\ufffd kaldırıldı.\n"_s);
  EXPECT_EQ(run(u"packs uninstall film"_s).output, u"\"film\" kurulu değil.\n"_s);

  expectFailure(u"packs install x"_s, 1, u"\"x\" kimlikli bir pack yok");
  cloud.server.answer("/files/film", 200, "CUBE");
  expectFailure(u"packs install film"_s, 1, u"SHA-256 doğrulaması başarısız: look.cube\n");
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

TEST(Interrupts, TheSecondEndsTheProgram) {
  const pid_t child = ::fork();
  if (child == 0) {
    const Interrupt interrupt;
    ::kill(::getpid(), SIGTERM);
    while (!interrupt.token().stop_requested()) std::this_thread::yield();
    // A user takes as long at least.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    ::kill(::getpid(), SIGINT);
    ::sleep(10);
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT);
}

TEST_F(ServiceCommands, SendARequestWithTheHostInUse) {
  cloud.server.answer(TestCloud::kRequests, 200, R"({"ok":true,"requestId":"R-1\u0007"})");
  const std::tuple<QByteArray, QString, QString, QString> rows[]{
      {"none", u"request --title T --detail D"_s, u"Talep gönderildi • R-1\ufffd\n"_s,
       u"final-cut"_s},
      {"builtin", u"request --json --module color --detail D --title T"_s,
       u"{\n    \"id\": \"R-1\\u0007\"\n}\n"_s, u"color"_s}};
  for (const auto& [host, line, output, module] : rows) {
    qputenv("ORVEX_HOST", host);
    EXPECT_EQ(run(line).output, output);
    const auto body = QJsonDocument::fromJson(cloud.server.requests().last().body);
    const bool isHostless = host == "none";
    EXPECT_EQ(body[u"module"], module);
    EXPECT_EQ(body[u"title"], u"T"_s);
    EXPECT_EQ(body[u"diagnostics"][u"compName"].toString().isEmpty(), isHostless);
    EXPECT_EQ(body[u"diagnostics"][u"appVersion"] == u"Final Cut Pro —"_s, isHostless);
  }
}

}  // namespace
