#include "support/Program.h"

#include <QSslConfiguration>
#include <QSslSocket>

#include <future>
#include <sqlite3.h>

namespace {

const QByteArray kPacks = "/downloads/orvex/packs/";

struct Exchange {
  int status = 0;
  // Names in lower case.
  QMap<QByteArray, QByteArray> headers;
  QByteArray body;
};

struct CloudServerTest : testing::Test {
  CloudServerTest() {
    tree.file("packs/gece/pack.json", R"({"name":"Gece","version":"1","targets":["final-cut"]})");
    tree.file("packs/gece/shared/ışık %20.cube", "0123456789");
  }
  void TearDown() override { EXPECT_EQ(end(), 0); }

  // Ends a server that runs and starts one; what it printed is taken as a shell takes it.
  void serve(const QStringList& options = {}) {
    end();
    server.start(QStringLiteral(ORVEX_PROGRAM), QStringList{u"cloud"_s, u"serve"_s, tree.text("."),
                                                            u"--port"_s, QString::number(port)} +
                                                    options);
    QByteArray printed;
    ASSERT_TRUE(waitUntil([&] {
      printed += server.readAllStandardOutput();
      return printed.count('\n') == 2 || server.state() == QProcess::NotRunning;
    }));
    const QList<QByteArray> lines = printed.split('\n');
    ASSERT_EQ(lines.size(), 3) << server.readAllStandardError().constData();
    const QByteArray service = lines[0].sliced(qstrlen("export ORVEX_SERVICE="));
    caFile = lines[1].sliced(qstrlen("export ORVEX_CA_FILE='")).chopped(1);
    port = service.sliced(service.lastIndexOf(':') + 1).toInt();
    qputenv("ORVEX_SERVICE", service);
    qputenv("ORVEX_CA_FILE", caFile);
  }
  void publish() {
    tree.folder("public");
    serve();
    ASSERT_EQ(orvexProgram({u"cloud"_s, u"build"_s, tree.text(".")}).exitCode, 0);
  }
  int end() {
    server.terminate();
    EXPECT_TRUE(waitUntil([this] { return server.state() == QProcess::NotRunning; }));
    return server.exitStatus() == QProcess::NormalExit ? server.exitCode() : -1;
  }
  // One exchange over a connection of its own, the path sent as it is written; the status is 0
  // where the server is not trusted.
  [[nodiscard]] Exchange call(const QByteArray& method, const QByteArray& path,
                              QByteArrayList headers = {}, const QByteArray& body = {}) const {
    QSslSocket socket;
    QSslConfiguration trust = socket.sslConfiguration();
    trust.setCaCertificates(QSslCertificate::fromPath(QFile::decodeName(caFile)));
    socket.setSslConfiguration(trust);
    // Not by name: a machine need not know the one that the certificate is for.
    socket.connectToHostEncrypted(u"127.0.0.1"_s, static_cast<quint16>(port), u"localhost"_s);
    headers.removeAll({});
    headers.prepend(method + ' ' + path + " HTTP/1.1\r\nHost: localhost\r\nConnection: close");
    if (!body.isEmpty() && !headers.last().contains("chunked"))
      headers.append("Content-Length: " + QByteArray::number(body.size()));
    socket.write(headers.join("\r\n") + "\r\n\r\n" + body);
    QByteArray got;
    while (socket.waitForReadyRead()) got += socket.readAll();
    const qsizetype end = got.indexOf("\r\n\r\n");
    if (end < 0) return {};
    QByteArrayList lines = got.first(end).split('\n');
    Exchange exchange{lines.takeFirst().split(' ').value(1).toInt(), {}, got.sliced(end + 4)};
    for (const QByteArray& line : lines) {
      const qsizetype colon = line.indexOf(':');
      exchange.headers[line.first(colon).toLower()] = line.sliced(colon + 1).trimmed();
    }
    return exchange;
  }

  TemporaryTree tree;
  QProcess server;
  QByteArray caFile;
  int port = 0;
};

TEST_F(CloudServerTest, AnswersForThePublishedFiles) {
  publish();
  const QByteArray file = kPacks + "files/gece/1/shared/%C4%B1%C5%9F%C4%B1k%20%2520.cube";
  tree.file("public/.hidden", "x");
  tree.link("public/link", "../private/ca.pem");
  tree.link("public/way", "../private");
  tree.fifo("public/fifo");
  const QMap<QByteArray, QByteArray> first = call("GET", file).headers;
  const QByteArray whole = "0123456789";
  // A request and a header of it; the status, the body and a header that it is answered with.
  using Header = std::pair<QByteArray, QByteArray>;
  const std::tuple<QByteArray, QByteArray, QByteArray, int, std::optional<QByteArray>, Header>
      rows[]{
          {"GET", file, {}, 200, whole, {"content-type", "text/plain; charset=utf-8"}},
          {"GET", file, {}, 200, whole, {"cache-control", "public, max-age=31536000, immutable"}},
          {"HEAD", file, "Range: bytes=2-4", 200, "", {"content-length", "10"}},
          {"GET", file, "Range: bytes=2-4", 206, "234", {"content-range", "bytes 2-4/10"}},
          {"GET", file, "Range: bytes=10-", 416, "", {"content-range", "bytes */10"}},
          {"GET", file, "If-None-Match: " + first["etag"], 304, "", {"etag", first["etag"]}},
          {"GET", file, "If-Modified-Since: " + first["last-modified"], 304, "", {}},
          {"GET", kPacks + "manifest.json?ts=1", {}, 200, {}, {"cache-control", "no-cache"}},
          {"DELETE", file, {}, 405, {}, {"allow", "GET, HEAD"}},
          {"GET", "/api/orvex/requests", {}, 405, {}, {"allow", "POST"}},
      };
  for (const auto& [method, path, header, status, body, expected] : rows) {
    SCOPED_TRACE((method + path + header + expected.first).constData());
    const Exchange got = call(method, path, {header});
    EXPECT_EQ(got.status, status);
    EXPECT_EQ(body.value_or(got.body), got.body);
    EXPECT_EQ(got.headers.value(expected.first), expected.second);
  }
  for (const char* path :
       {"/", "/downloads", "/downloads/", "/.hidden", "/link", "/way/ca.pem", "/fifo",
        "/../private/ca.key", "/downloads/%2e%2e/%2e%2e/private/ca.key",
        "/downloads%2f..%2f..%2fprivate%2fca.key", "/downloads/orvex/packs/manifest.json%00.txt"})
    EXPECT_EQ(call("GET", path).status, 404) << path;
  // Nothing of a body, nothing that a terminal would obey.
  QByteArray printed;
  EXPECT_TRUE(waitUntil([&] {
    printed += server.readAllStandardError();
    return printed.contains(" 127.0.0.1 GET /downloads/orvex/packs/manifest.json?ts=1 200 ");
  }));
  caFile.clear();
  EXPECT_EQ(call("GET", file).status, 0) << "nobody knows its authority";
}

TEST_F(CloudServerTest, InstallsIntoThePanelsStore) {
  publish();
  qputenv("XDG_DATA_HOME", tree.path("data"));
  const ProgramResult ended = orvexProgram(words(u"packs install gece"_s));
  EXPECT_EQ(ended.exitCode, 0) << ended.errors;
  EXPECT_EQ(tree.contents("data/Vantrelo Orvex/FinalCut/UniversalPacks/gece/1/ışık %20.cube"),
            "0123456789");
}

TEST_F(CloudServerTest, StoresRequests) {
  publish();
  const QByteArray request =
      R"({"type":"feature","title":"Başlık","description":"Uzun 'metin'","priority":"normal",
          "module":"Color","source":"vantrelo-orvex-finalcut","diagnostics":{"appVersion":"a",
          "extensionVersion":"b","platform":"macOS","renderer":"r","compName":""}})";
  const auto with = [&](const char* what, const QByteArray& instead) {
    return QByteArray(request).replace(what, instead);
  };
  const QByteArray json = "Content-Type: application/json";
  const QByteArray chunked = "Transfer-Encoding: chunked";
  const auto chunk = [](const QByteArray& bytes) {
    return QByteArray::number(bytes.size(), 16) + "\r\n" + bytes + "\r\n0\r\n\r\n";
  };
  const std::tuple<QByteArrayList, QByteArray, int> rows[]{
      {{"Content-Type: Application/JSON; charset=utf-8"}, request, 201},
      {{"Content-Type: text/plain"}, request, 415},
      {{json}, "{", 400},
      {{json}, with("\"module\"", "\"m\""), 400},
      {{json}, with("Başlık", " "), 400},
      {{json}, with("Uzun", QByteArray(70'000, 'x')), 413},
      // Nothing that is still on its way may take the answer with it.
      {{json}, with("Uzun", QByteArray(1'000'000, 'x')), 413},
      {{json}, with("Uzun", QByteArray(1'000'000, 'y')), 413},
      {{json, chunked}, chunk(QByteArray(70'000, 'x')), 413},
      {{json, chunked}, chunk(request), 201},
  };
  QByteArray expected;
  for (const auto& [headers, body, status] : rows) {
    SCOPED_TRACE((headers.join() + body.left(20)).constData());
    const Exchange got = call("POST", "/api/orvex/requests", headers, body);
    EXPECT_EQ(got.status, status);
    const QJsonObject answer = QJsonDocument::fromJson(got.body).object();
    EXPECT_EQ(answer[u"ok"].toBool(), status == 201);
    EXPECT_EQ(answer[u"message"].toString().isEmpty(), status == 201);
    const QByteArray id = answer[u"requestId"].toString().toUtf8();
    EXPECT_EQ(id.startsWith("REQ-"), status == 201);
    if (status == 201) expected += id + "|Başlık|Uzun 'metin'|Color|b|1|";
  }
  QByteArray stored;
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(tree.path("private/requests.db").constData(), &database), SQLITE_OK);
  const auto take = [](void* to, int columns, char** values, char**) {
    for (int i = 0; i < columns; ++i) *static_cast<QByteArray*>(to) += QByteArray(values[i]) + '|';
    return 0;
  };
  sqlite3_exec(database,
               "SELECT id, title, description, module, extension_version, "
               "received_at GLOB '20*-*-*T*Z' FROM requests ORDER BY rowid",
               take, &stored, nullptr);
  sqlite3_close(database);
  EXPECT_EQ(stored, expected);
}

TEST_F(CloudServerTest, HoldsNoFileInMemoryAndEndsInTheMiddleOfATransfer) {
  // The address sanitizer keeps what was freed; here it would be what the connection's pieces were.
  qputenv("ASAN_OPTIONS", "quarantine_size_mb=1");
  constexpr qint64 kBytes = 128 * 1024 * 1024;
  tree.file("packs/gece/shared/big.bin");
  std::filesystem::resize_file(tree.path("packs/gece/shared/big.bin").toStdString(), kBytes);
  publish();
  const QByteArray big = kPacks + "files/gece/1/shared/big.bin";
  const auto peak = [this] {
    const QByteArray text = contentsOf(u"/proc/%1/status"_s.arg(server.processId()));
    return text.sliced(text.indexOf("VmHWM:") + 6).trimmed().split(' ')[0].toLongLong() * 1024;
  };
  std::ignore = call("HEAD", big);
  const qint64 before = peak();
  EXPECT_EQ(call("GET", big).body.size(), kBytes);
  EXPECT_LT(peak() - before, kBytes / 4);

  serve({u"--rate"_s, u"1000"_s});
  auto client = std::async(std::launch::async, [&] { return call("GET", big); });
  EXPECT_TRUE(waitUntil([this] {
    const QDir open(u"/proc/%1/fd"_s.arg(server.processId()));
    const QFileInfoList files = open.entryInfoList(QDir::System | QDir::Files);
    return std::ranges::any_of(
        files, [](const QFileInfo& file) { return file.symLinkTarget().endsWith(u"/big.bin"); });
  }));
  EXPECT_EQ(end(), 0);
  EXPECT_LT(client.get().body.size(), kBytes);
}

TEST_F(CloudServerTest, KeepsItsAuthorityToItself) {
  publish();
  const QByteArray authority = tree.contents("private/ca.pem");
  for (const char* name : {"private", "private/ca.key", "private/requests.db"})
    EXPECT_EQ(std::filesystem::status(tree.path(name).toStdString()).permissions() &
                  std::filesystem::perms(077),
              std::filesystem::perms::none)
        << name;
  serve();
  EXPECT_EQ(tree.contents("private/ca.pem"), authority);
  // One that cannot be used is replaced by one that can.
  tree.file("private/ca.key", "x");
  serve();
  EXPECT_NE(tree.contents("private/ca.pem"), authority);
  EXPECT_EQ(call("GET", kPacks + "manifest.json").status, 200);
}

TEST_F(CloudServerTest, SaysWhatIsWrong) {
  publish();
  tree.folder("empty");
  tree.file("pem", "x");
  // With the folder in the place of DIR.
  const std::tuple<QString, int, QString> rows[]{
      {u"build DIR --base-url http://x"_s, 2, u"--base-url geçersiz"_s},
      {u"build DIR/missing"_s, 1, u"missing"_s},
      {u"serve DIR --port %1"_s.arg(port), 1, u"başka bir program kullanıyor"_s},
      {u"serve DIR --address host"_s, 1, u"IP adresi değil"_s},
      {u"serve DIR/empty"_s, 1, u"orvex cloud build"_s},
      {u"serve DIR --port 0 --cert DIR/pem --key DIR/pem"_s, 1, u"PEM"_s},
  };
  for (const auto& [line, code, fragment] : rows)
    expectFailure(u"cloud "_s + QString(line).replace(u"DIR"_s, tree.text(".")), code, fragment);
}

}  // namespace
