#include "services/UniversalPackClient.h"
#include "support/FaultServer.h"
#include "support/TemporaryTree.h"
#include "support/TestPack.h"

using namespace orvex;

namespace {

struct PackClient : testing::Test {
  PackClient() {
    for (int i = 0; i < 3; ++i)
      test.contents[test.pack.sharedAssets[i].file] = QByteArray(kSize, static_cast<char>('a' + i));
    for (auto& asset : test.pack.sharedAssets) {
      asset.url = server.url('/' + asset.file.toUtf8()).toString();
      server.answer('/' + asset.file.toUtf8(), 200, test.contents[asset.file]);
    }
  }

  static constexpr qsizetype kSize = 100'000;
  static QByteArray body(char letter) { return QByteArray(kSize, letter); }

  FaultServer server;
  TemporaryTree tree;
  TestPack test{QStringLiteral("film"),
                QStringLiteral("1"),
                {{QStringLiteral("a"), body('a')},
                 {QStringLiteral("b"), body('b')},
                 {QStringLiteral("c"), body('c')}}};
  UniversalPackClient client{server.url("/catalog"), tree.text("packs"),
                             server.options(std::chrono::seconds(2))};
};

TEST_F(PackClient, InstallsOverOneConnectionAndRemoves) {
  client.install(test.pack);
  const auto installed = client.installedPacks();
  ASSERT_EQ(installed.size(), 1);
  for (const QString& file : installed.first().files) {
    QFile read(installed.first().directoryURL.toLocalFile() + u'/' + file);
    EXPECT_TRUE(read.open(QIODevice::ReadOnly));
    EXPECT_EQ(read.readAll(), test.contents[file]) << file.toStdString();
  }
  EXPECT_EQ(server.requests().size(), 3);
  EXPECT_EQ(server.connections(), 1);
  client.uninstall(QStringLiteral("film"));
  EXPECT_TRUE(client.installedPacks().isEmpty());
}

// What the server does with the second file, and the beginning of what is told of it.
TEST_F(PackClient, NothingIsInstalledOfADownloadThatFails) {
  using Peer = FaultServer::Peer;
  const QByteArray ok = "HTTP/1.1 200 OK\r\n";
  const struct {
    const char* name;
    std::function<void(Peer&)> act;
    QString text;
  } cases[]{{"not there", [](Peer& peer) { peer.reply(404, "no"); },
             QStringLiteral("Universal Pack HTTP 404")},
            {"a page instead", [](Peer& peer) { peer.reply(200, "<html>"); },
             QStringLiteral("Dosya boyutu doğrulanamadı: b")},
            {"endless",
             [&](Peer& peer) {
               peer.send(ok + "\r\n");
               peer.repeat(body('b'));
             },
             QStringLiteral("Dosya boyutu doğrulanamadı: b")},
            {"other bytes", [](Peer& peer) { peer.reply(200, body('x')); },
             QStringLiteral("SHA-256 doğrulaması başarısız: b")},
            {"not HTTP",
             [](Peer& peer) {
               peer.send("SSH-2.0-OpenSSH\r\n\r\n");
               peer.close();
             },
             QStringLiteral("Universal Pack sunucu cevabı geçersiz.")},
            {"cut",
             [&](Peer& peer) {
               peer.send(ok + "Content-Length: 100000\r\n\r\n" + body('b').first(5000));
               peer.close();
             },
             QString()},
            {"reset",
             [&](Peer& peer) {
               peer.send(ok + "Content-Length: 100000\r\n\r\n" + body('b').first(5000));
               peer.reset();
             },
             QString()},
            {"stalled",
             [&](Peer& peer) {
               peer.send(ok + "Content-Length: 100000\r\n\r\nb");
               peer.stall();
             },
             QString()}};
  for (const auto& [name, act, text] : cases) {
    SCOPED_TRACE(name);
    server.on("/b", [&act](Peer& peer, const auto&) { act(peer); });
    try {
      client.install(test.pack);
      ADD_FAILURE() << "installed";
    } catch (const UniversalPackClientError& error) {
      EXPECT_EQ(error.description(), text);
    } catch (const TransportError&) {
      EXPECT_TRUE(text.isEmpty());
    }
    EXPECT_TRUE(QDir(tree.text("packs"))
                    .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
                    .isEmpty());
  }
  server.answer("/b", 200, body('b'));
  client.install(test.pack);
  EXPECT_EQ(client.installedPacks().size(), 1);
}

TEST_F(PackClient, IsCancelledInMidFile) {
  std::stop_source stop;
  server.on("/b", [&](FaultServer::Peer& peer, const auto&) {
    peer.send("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\nb");
    stop.request_stop();
    peer.stall();
  });
  EXPECT_THROW(client.install(test.pack, {.stop = stop.get_token()}), Stopped);
  EXPECT_TRUE(QDir(tree.text("packs"))
                  .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
                  .isEmpty());
}

}  // namespace
