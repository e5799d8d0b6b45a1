#include "Http.h"
#include "support/Program.h"
#include "support/TemporaryTree.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>
#include <sqlite3.h>
#include <thread>

using namespace orvex;

namespace {

const QByteArray kPacks = "/downloads/orvex/packs/";
const QByteArray kBig = kPacks + "files/gece/1/shared/big.bin";

class CloudServerTest : public testing::Test {
 protected:
  void SetUp() override {
    tree.file("packs/gece/pack.json", R"({"name":"Gece","version":"1","targets":["final-cut"]})");
    tree.file("packs/gece/shared/ışık %20.cube", "0123456789");
  }

  // What it printed is taken as a shell takes it.
  void serve(const QStringList& options = {}) {
    if (server.state() != QProcess::NotRunning) end();
    server.start(
        QStringLiteral(ORVEX_PROGRAM),
        QStringList{u"cloud"_qs, u"serve"_qs, tree.text("."), u"--port"_qs, QString::number(port)} +
            options);
    ASSERT_TRUE(waitUntil([this] {
      printed += server.readAllStandardOutput();
      return printed.count('\n') == 2 || server.state() == QProcess::NotRunning;
    }));
    const QList<QByteArray> lines = std::exchange(printed, {}).split('\n');
    ASSERT_EQ(lines.size(), 3) << server.readAllStandardError().constData();
    service = lines[0].sliced(qstrlen("export ORVEX_SERVICE="));
    caFile = lines[1].sliced(qstrlen("export ORVEX_CA_FILE='")).chopped(1);
    port = service.sliced(service.lastIndexOf(':') + 1).toInt();
    qputenv("ORVEX_SERVICE", service);
    qputenv("ORVEX_CA_FILE", caFile);
  }
  void publishBigFile() {
    tree.file("packs/gece/shared/big.bin");
    std::filesystem::resize_file(tree.path("packs/gece/shared/big.bin").toStdString(), kBigBytes);
    publish();
  }
  void publish() {
    tree.folder("public");
    serve();
    ASSERT_EQ(runProgram(QStringLiteral(ORVEX_PROGRAM), {u"cloud"_qs, u"build"_qs, tree.text(".")})
                  .exitCode,
              0);
  }
  int end() {
    server.terminate();
    EXPECT_TRUE(waitUntil([this] { return server.state() == QProcess::NotRunning; }));
    return server.exitStatus() == QProcess::NormalExit ? server.exitCode() : -1;
  }
  void TearDown() override {
    if (server.state() != QProcess::NotRunning) {
      EXPECT_EQ(end(), 0);
    }
  }
  [[nodiscard]] HttpExchange call(const QByteArray& method, const QByteArray& path,
                                  const QList<QByteArray>& headers = {},
                                  const QByteArray& body = {}) const {
    return exchange({method, service + path, headers, body, caFile});
  }

  static constexpr qint64 kBigBytes = 128 * 1024 * 1024;
  TemporaryTree tree;
  QProcess server;
  QByteArray printed;
  QByteArray service;
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
  const struct {
    QByteArray method;
    QByteArray path;
    QList<QByteArray> headers;
    int status;
    QByteArray body;
    QMap<QByteArray, QByteArray> expected;
  } rows[]{
      {"GET",
       file,
       {},
       200,
       "0123456789",
       {{"content-length", "10"},
        {"content-type", "text/plain; charset=utf-8"},
        {"cache-control", "public, max-age=31536000, immutable"}}},
      {"HEAD", file, {"Range: bytes=2-4"}, 200, "", {{"content-length", "10"}}},
      {"GET", file, {"Range: bytes=2-4"}, 206, "234", {{"content-range", "bytes 2-4/10"}}},
      {"GET", file, {"Range: bytes=10-"}, 416, "", {{"content-range", "bytes */10"}}},
      {"GET", file, {"If-None-Match: " + first["etag"]}, 304, "", {{"etag", first["etag"]}}},
      {"GET", file, {"If-Modified-Since: " + first["last-modified"]}, 304, "", {}},
      {"GET",
       kPacks + "manifest.json?ts=1",
       {},
       200,
       {},
       {{"content-type", "application/json"}, {"cache-control", "no-cache"}}},
      {"DELETE", file, {}, 405, {}, {{"allow", "GET, HEAD"}}},
      {"GET", "/api/orvex/requests", {}, 405, {}, {{"allow", "POST"}}},
      {"GET", "/", {}, 404, {}, {}},
      {"GET", "/downloads", {}, 404, {}, {}},
      {"GET", "/downloads/", {}, 404, {}, {}},
      {"GET", "/.hidden", {}, 404, {}, {}},
      {"GET", "/link", {}, 404, {}, {}},
      {"GET", "/way/ca.pem", {}, 404, {}, {}},
      {"GET", "/fifo", {}, 404, {}, {}},
      {"GET", "/../private/ca.key", {}, 404, {}, {}},
      {"GET", "/downloads/%2e%2e/%2e%2e/private/ca.key", {}, 404, {}, {}},
      {"GET", "/downloads%2f..%2f..%2fprivate%2fca.key", {}, 404, {}, {}},
      {"GET", "/downloads/orvex/packs/manifest.json%00.txt", {}, 404, {}, {}},
  };
  for (const auto& row : rows) {
    const HttpExchange got = call(row.method, row.path, row.headers);
    EXPECT_EQ(got.status, row.status) << row.path.constData();
    if (!row.body.isNull()) {
      EXPECT_EQ(got.body, row.body) << row.path.constData();
    }
    for (auto header = row.expected.begin(); header != row.expected.end(); ++header)
      EXPECT_EQ(got.headers.value(header.key()), header.value()) << row.path.constData();
  }
  // Nothing of a body, nothing that a terminal would obey.
  EXPECT_TRUE(waitUntil([this] {
    printed += server.readAllStandardError();
    return printed.contains(" 127.0.0.1 GET /downloads/orvex/packs/manifest.json?ts=1 200 ");
  }));
  EXPECT_EQ(exchange({.address = service + file}).result, CURLE_PEER_FAILED_VERIFICATION);
}

TEST_F(CloudServerTest, InstallsIntoThePanelsStore) {
  publish();
  qputenv("XDG_DATA_HOME", tree.path("data"));
  const ProgramResult ended =
      runProgram(QStringLiteral(ORVEX_PROGRAM), {u"packs"_qs, u"install"_qs, u"gece"_qs});
  EXPECT_EQ(ended.exitCode, 0) << qPrintable(ended.errors);
  QFile file(tree.text("data/Vantrelo Orvex/FinalCut/UniversalPacks/gece/1/ışık %20.cube"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), "0123456789");
}

TEST_F(CloudServerTest, StoresRequests) {
  publish();
  const QByteArray request =
      R"({"type":"feature","title":"Başlık","description":"Uzun 'metin'","priority":"normal",
          "module":"Color","source":"vantrelo-orvex-finalcut","diagnostics":{"appVersion":"a",
          "extensionVersion":"b","platform":"macOS","renderer":"r","compName":""}})";
  const QByteArray json = "Content-Type: application/json";
  const struct {
    QList<QByteArray> headers;
    QByteArray body;
    int status;
  } rows[]{
      {{"Content-Type: Application/JSON; charset=utf-8"}, request, 201},
      {{"Content-Type: text/plain"}, request, 415},
      {{json}, "[]", 400},
      {{json}, "{", 400},
      {{json}, QByteArray(request).replace("\"module\"", "\"m\""), 400},
      {{json}, QByteArray(request).replace("\"normal\"", "1"), 400},
      {{json}, QByteArray(request).replace("Başlık", " "), 400},
      {{json}, QByteArray(request).replace("Uzun", QByteArray(70'000, 'x')), 413},
      {{json, "Transfer-Encoding: chunked"}, QByteArray(70'000, 'x'), 413},
      {{json, "Transfer-Encoding: chunked"}, request, 201},
  };
  QByteArrayList identifiers;
  for (const auto& row : rows) {
    const HttpExchange got = call("POST", "/api/orvex/requests", row.headers, row.body);
    EXPECT_EQ(got.status, row.status) << row.body.first(qMin(row.body.size(), 80)).constData();
    const QJsonObject answer = QJsonDocument::fromJson(got.body).object();
    EXPECT_EQ(answer[u"ok"].toBool(), row.status == 201);
    EXPECT_EQ(answer[u"message"].toString().isEmpty(), row.status == 201);
    if (row.status == 201) identifiers += answer[u"requestId"].toString().toUtf8();
  }

  QByteArrayList stored;
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(tree.path("private/requests.db").constData(), &database), SQLITE_OK);
  const auto take = [](void* to, int columns, char** values, char**) {
    for (int i = 0; i < columns; ++i) static_cast<QByteArrayList*>(to)->append(values[i]);
    return 0;
  };
  sqlite3_exec(database,
               "SELECT id, title, description, module, extension_version, "
               "received_at GLOB '20*-*-*T*Z' FROM requests ORDER BY rowid",
               take, &stored, nullptr);
  sqlite3_close(database);
  QByteArrayList expected;
  for (const QByteArray& id : std::as_const(identifiers)) {
    EXPECT_TRUE(id.startsWith("REQ-"));
    expected += {id, "Başlık", "Uzun 'metin'", "Color", "b", "1"};
  }
  EXPECT_EQ(stored, expected);
}

TEST_F(CloudServerTest, HoldsNoFileInMemory) {
  // The address sanitizer keeps what was freed; here it would be what the connection's pieces were.
  qputenv("ASAN_OPTIONS", "quarantine_size_mb=1");
  publishBigFile();
  const auto peak = [this] {
    QFile status(QStringLiteral("/proc/%1/status").arg(server.processId()));
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    const QByteArray text = status.readAll();
    return text.sliced(text.indexOf("VmHWM:") + 6).trimmed().split(' ')[0].toLongLong() * 1024;
  };
  (void)call("HEAD", kBig);
  const qint64 before = peak();
  qint64 received = 0;
  EXPECT_EQ(exchange({.address = service + kBig, .caFile = caFile, .counted = &received}).status,
            200);
  EXPECT_EQ(received, kBigBytes);
  EXPECT_LT(peak() - before, kBigBytes / 4);
}

TEST_F(CloudServerTest, EndsInTheMiddleOfATransfer) {
  publishBigFile();
  serve({u"--rate"_qs, u"1000"_qs});
  qint64 received = 0;
  HttpExchange broken;
  std::thread client([&] {
    broken = exchange({.address = service + kBig, .caFile = caFile, .counted = &received});
  });
  EXPECT_TRUE(waitUntil([this] {
    const QDir open(QStringLiteral("/proc/%1/fd").arg(server.processId()));
    for (const QFileInfo& file : open.entryInfoList(QDir::System | QDir::Files))
      if (file.symLinkTarget().endsWith(u"/big.bin")) return true;
    return false;
  }));
  EXPECT_EQ(end(), 0);
  client.join();
  EXPECT_NE(broken.result, CURLE_OK);
  EXPECT_LT(received, kBigBytes);
}

TEST_F(CloudServerTest, KeepsItsAuthorityToItself) {
  publish();
  const auto read = [this](const char* name) {
    QFile file(tree.text(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  };
  const QByteArray authority = read("private/ca.pem");
  for (const char* name : {"private", "private/ca.key", "private/requests.db"})
    EXPECT_EQ(QFile::permissions(tree.text(name)) &
                  (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
              QFile::Permissions())
        << name;
  serve();
  EXPECT_EQ(read("private/ca.pem"), authority);
  EXPECT_EQ(call("GET", kPacks + "manifest.json").status, 200);
  // One that cannot be used is replaced by one that can.
  tree.file("private/ca.key", "x");
  serve();
  EXPECT_NE(read("private/ca.pem"), authority);
  EXPECT_EQ(call("GET", kPacks + "manifest.json").status, 200);
}

TEST_F(CloudServerTest, SaysWhatIsWrong) {
  publish();
  const QString at = QString::number(port);
  const QString folder = tree.text(".");
  tree.folder("empty");
  tree.file("pem", "x");
  const struct {
    QStringList arguments;
    int code;
    QString fragment;
  } rows[]{
      {{}, 2, u"build ya da serve"_qs},
      {{u"publish"_qs}, 2, u"\"publish\" anlaşılmadı"_qs},
      {{u"build"_qs}, 2, u"klasörü yaz"_qs},
      {{u"build"_qs, folder, u"--base-url"_qs, u"http://x"_qs}, 2, u"--base-url geçersiz"_qs},
      {{u"build"_qs, folder, u"--port"_qs, u"1"_qs}, 2, u"\"--port\" diye bir seçenek yok"_qs},
      {{u"build"_qs, tree.text("missing")}, 1, u"missing"_qs},
      {{u"serve"_qs, folder, u"--port"_qs, u"65536"_qs}, 2, u"\"65536\" olmaz"_qs},
      {{u"serve"_qs, folder, u"--rate"_qs}, 2, u"bir değer ister"_qs},
      {{u"serve"_qs, folder, u"--cert"_qs, u"x"_qs}, 2, u"birlikte"_qs},
      {{u"serve"_qs, folder, u"--port"_qs, at}, 1, u"başka bir program kullanıyor"_qs},
      {{u"serve"_qs, folder, u"--address"_qs, u"host"_qs}, 1, u"IP adresi değil"_qs},
      {{u"serve"_qs, tree.text("empty")}, 1, u"orvex cloud build"_qs},
      {{u"serve"_qs, folder, u"--port"_qs, u"0"_qs, u"--cert"_qs, tree.text("pem"), u"--key"_qs,
        tree.text("pem")},
       1,
       u"PEM"_qs},
  };
  for (const auto& row : rows) {
    const ProgramResult ended =
        runProgram(QStringLiteral(ORVEX_PROGRAM), QStringList{u"cloud"_qs} + row.arguments);
    EXPECT_EQ(ended.exitCode, row.code) << qPrintable(row.fragment);
    EXPECT_TRUE(ended.errors.contains(row.fragment)) << qPrintable(ended.errors);
  }
}

}  // namespace
