#include "services/UniversalPackClient.h"
#include "support/FaultServer.h"
#include "support/TemporaryTree.h"
#include "support/TestPack.h"

using namespace orvex;
using namespace Qt::StringLiterals;
using Peer = FaultServer::Peer;

namespace {

// A server with the files "a", "b" and "c" of a pack.
struct PackClient : testing::Test {
  PackClient() {
    for (auto& asset : test.pack.sharedAssets) {
      const QByteArray path = '/' + asset.file.toUtf8();
      asset.url = server.url(path).toString();
      server.answer(path, 200, test.contents[asset.file]);
    }
  }

  static constexpr qsizetype kSize = 100'000;
  static QByteArray body(char letter) { return QByteArray(kSize, letter); }

  FaultServer server;
  TemporaryTree tree;
  TestPack test{u"film"_s, u"1"_s, {{u"a"_s, body('a')}, {u"b"_s, body('b')}, {u"c"_s, body('c')}}};
  UniversalPackClient client{server.url("/catalog"), tree.text("packs"),
                             server.options(std::chrono::seconds(5))};
};

TEST_F(PackClient, InstallsOverOneConnectionAndRemoves) {
  client.install(test.pack);
  ASSERT_EQ(client.installedPacks().size(), 1);
  for (const QString& file : test.contents.keys())
    EXPECT_EQ(tree.contents("packs/film/1/" + file.toUtf8()), test.contents[file]) << file;
  EXPECT_EQ(server.requests().size(), 3);
  EXPECT_EQ(server.connections(), 1);
  client.uninstall(u"film"_s);
  EXPECT_TRUE(client.installedPacks().isEmpty());
}

TEST_F(PackClient, KeepsWhatIsThereWhenADownloadFails) {
  client.install(test.pack);
  const auto installed = client.installedPacks();
  const auto begun = [](const QByteArray& sent, qsizetype length) {
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(length) + "\r\n\r\n" + sent;
  };
  const QString size = u"Dosya boyutu doğrulanamadı: b"_s;
  const QString digest = u"SHA-256 doğrulaması başarısız: b"_s;
  // What the server does with the second file, and what is told of it.
  const struct {
    QByteArray said;
    FaultServer::Then then;
    QString text;
  } rows[]{
      {"HTTP/1.1 404 No\r\nContent-Length: 0\r\n\r\n", &Peer::keep, u"Universal Pack HTTP 404"_s},
      {begun(body('b').chopped(1), kSize - 1), &Peer::keep, size},
      {"HTTP/1.1 200 OK\r\n\r\n" + body('b') + "b", &Peer::stall, size},
      {begun(body('x'), kSize), &Peer::keep, digest},
      {"SSH-2.0-OpenSSH\r\n\r\n", &Peer::close, u"Universal Pack sunucu cevabı geçersiz."_s},
      {begun("bbb", kSize), &Peer::close, {}},
      {begun("bbb", kSize), &Peer::stall, {}},
  };
  const auto expectFailure = [&](const UniversalPack& pack, const QString& text) {
    try {
      client.install(pack);
      ADD_FAILURE() << "installed";
    } catch (const UniversalPackClientError& error) {
      EXPECT_EQ(error.description(), text);
    } catch (const TransportError&) {
      EXPECT_EQ(text, QString());
    }
    EXPECT_EQ(client.installedPacks(), installed);
    EXPECT_EQ(tree.names("packs"), QStringList{u"film"_s});
  };
  test.pack.version = u"2"_s;
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    server.say("/b", row.said, row.then);
    expectFailure(test.pack, row.text);
  }
  server.answer("/b", 200, body('b'));
  UniversalPack upperCase = test.pack;
  upperCase.sharedAssets[1].sha256 = upperCase.sharedAssets[1].sha256.toUpper();
  expectFailure(upperCase, digest);
  client.install(test.pack);
  EXPECT_EQ(client.installedPacks().first().version, u"2"_s);
}

}  // namespace
