#include "services/UniversalPackClient.h"
#include "support/FaultServer.h"
#include "support/TestPack.h"

using Peer = FaultServer::Peer;

TEST(UniversalPackClient, KeepsWhatIsThereAndSaysWhyWhenADownloadFails) {
  constexpr qsizetype kSize = 100'000;
  const QByteArray body(kSize, 'b');
  FaultServer server;
  const TemporaryTree tree;
  TestPack test{u"film"_s, u"1"_s, {{u"a"_s, "a"}, {u"b"_s, body}, {u"c"_s, "c"}}};
  for (UniversalPackAsset& asset : test.pack.sharedAssets) {
    const QByteArray path = '/' + asset.file.toUtf8();
    asset.url = server.url(path).toString();
    server.answer(path, 200, test.contents[asset.file]);
  }
  const UniversalPackClient client(server.url("/catalog"), tree.text("packs"), server.options(5s));
  client.install(test.pack);
  EXPECT_EQ(server.requests().size(), 3);
  EXPECT_EQ(server.connections(), 1);

  const auto begun = [](const QByteArray& sent, qsizetype length) {
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(length) + "\r\n\r\n" + sent;
  };
  const QString size = u"Dosya boyutu doğrulanamadı: b"_s;
  const QString digest = u"SHA-256 doğrulaması başarısız: b"_s;
  const QString lower = test.pack.sharedAssets[1].sha256;
  // What the server does with the second file, what is told of it, and the digest of the catalog.
  const std::tuple<QByteArray, FaultServer::Then, QString, QString> rows[]{
      {"HTTP/1.1 404 No\r\nContent-Length: 0\r\n\r\n", &Peer::keep, u"Universal Pack HTTP 404"_s,
       lower},
      {begun(body.chopped(1), kSize - 1), &Peer::keep, size, lower},
      {"HTTP/1.1 200 OK\r\n\r\n" + body + "b", &Peer::stall, size, lower},
      {begun(QByteArray(kSize, 'x'), kSize), &Peer::keep, digest, lower},
      {begun(body, kSize), &Peer::keep, digest, lower.toUpper()},
      {"SSH-2.0-OpenSSH\r\n\r\n", &Peer::close, u"Universal Pack sunucu cevabı geçersiz."_s, lower},
      {begun("bbb", kSize), &Peer::close, u"localhost"_s, lower},
      {begun("bbb", kSize), &Peer::stall, u"localhost"_s, lower},
      {begun(body, kSize), &Peer::keep, {}, lower},
  };
  test.pack.version = u"2"_s;
  for (const auto& [said, then, text, sha256] : rows) {
    SCOPED_TRACE(said.left(40).constData());
    server.say("/b", said, then);
    test.pack.sharedAssets[1].sha256 = sha256;
    QString told;
    try {
      client.install(test.pack);
    } catch (const DescribedError& error) {
      told = error.description();
    }
    EXPECT_TRUE(text.isEmpty() ? told.isEmpty() : told.contains(text)) << told;
    EXPECT_EQ(client.installedPacks().value(0).version, text.isEmpty() ? u"2" : u"1");
    EXPECT_EQ(tree.names("packs"), QStringList{u"film"_s});
  }
  client.uninstall(u"film"_s);
  EXPECT_TRUE(client.installedPacks().isEmpty());
}
