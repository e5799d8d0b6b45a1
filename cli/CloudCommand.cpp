#include "CloudCommand.h"

#include "Arguments.h"
#include "CloudRequest.h"
#include "Interrupt.h"
#include "Output.h"
#include "base/Background.h"
#include "base/SmallFile.h"
#include "base/Text.h"
#include "cloud/CatalogBuild.h"
#include "cloud/CloudServer.h"
#include "cloud/RequestStore.h"
#include "shell/OrvexConfig.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <condition_variable>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <sys/stat.h>

namespace orvex {
namespace {

// What the server keeps to itself: requests and the key of its authority.
constexpr auto kPrivate = "private";

void build(const CloudRequest& request, const Finish& finish) {
  const QString base =
      request.baseURL.isEmpty() ? qEnvironmentVariable("ORVEX_SERVICE") : request.baseURL;
  if (const auto used = OrvexConfig::useService(base); !used) {
    printError(request.baseURL.isEmpty()
                   ? used.error()
                   : QStringLiteral("--base-url geçersiz: \"%1\". https://sunucu[:port][/yol] "
                                    "biçiminde bir adres ver.")
                         .arg(request.baseURL));
    return finish(WrongUsage);
  }
  const CatalogBuild built =
      buildCatalog(Directory::open(absolutePath(request.folder)), OrvexConfig::packsManifestURL());
  if (request.json)
    printJson(QJsonDocument(QJsonObject{{QStringLiteral("revision"), built.revision},
                                        {QStringLiteral("packs"), built.packs},
                                        {QStringLiteral("files"), built.files},
                                        {QStringLiteral("bytes"), built.bytes},
                                        {QStringLiteral("changed"), built.changed}}));
  else
    printLine(QStringLiteral("%1: %2 paket, %3 dosya, %4. Sürüm %5.")
                  .arg(built.changed ? QStringLiteral("Yayımlandı") : QStringLiteral("Değişmedi"))
                  .arg(built.packs)
                  .arg(built.files)
                  .arg(bytesText(built.bytes), built.revision));
  finish(Done);
}

QByteArray readPem(const QString& path) {
  constexpr qsizetype kMaximum = 1024 * 1024;
  const auto pem = readSmallFile(AT_FDCWD, QFile::encodeName(path), kMaximum);
  if (!pem)
    throw DescribedError(
        QStringLiteral("%1 okunamıyor. PEM dosyasının yolunu ve izinlerini denetle.").arg(path));
  return *pem;
}

// For a line that a shell reads.
QString quoted(QString text) {
  return u'\'' + text.replace(u'\'', QStringLiteral("'\\''")) + u'\'';
}

// The service from its start until the program is asked to end.
class Serving final : public QObject {
 public:
  Serving(const CloudRequest& request, const Finish& finish, QObject& owner)
      : QObject(&owner), finish_(finish) {
    // All that is made from here on is the user's alone.
    ::umask(S_IRWXG | S_IRWXO);
    const Directory vendor = Directory::open(absolutePath(request.folder));
    if (!vendor.has("public"))
      throw DescribedError(QStringLiteral("%1 içinde yayımlanmış bir şey yok. Önce orvex cloud "
                                          "build ile yayımla.")
                               .arg(QFile::decodeName(vendor.path())));
    Directory published = vendor.folder("public");
    const Directory own = Directory::make(vendor.path(kPrivate));
    own.keepPrivate();
    requests_ = std::make_unique<RequestStore>(own.path("requests.db"));
    const bool ownCertificate = request.certificate.isEmpty();
    const QByteArray address = request.address.toLatin1();
    ListenSocket socket = listenAt(address, request.port);
    const std::uint16_t port = socket.port;
    server_ = std::make_unique<CloudServer>(
        std::move(socket), std::move(published), *requests_,
        CloudServerOptions{
            ownCertificate ? makeServerCertificate(own, address)
                           : ServerCertificate{readPem(request.certificate), readPem(request.key)},
            request.rate},
        [](const QByteArray& line) { printError(QString::fromUtf8(line)); });
    const QString host = address.contains(':') ? u'[' + request.address + u']' : request.address;
    printLine(QStringLiteral("export ORVEX_SERVICE=https://%1:%2").arg(host).arg(port));
    if (ownCertificate)
      printLine(QStringLiteral("export ORVEX_CA_FILE=%1")
                    .arg(quoted(QFile::decodeName(own.path(kAuthorityCertificate)))));
    // Whoever started this waits for the lines.
    std::fflush(stdout);
    asked_.run(
        [asked = interrupt_.token()](const WorkControl&) {
          std::mutex mutex;
          std::unique_lock lock(mutex);
          std::condition_variable_any().wait(lock, asked, [] { return false; });
        },
        [this](const auto&) { end(); });
  }

 private:
  void end() {
    server_.reset();
    finish_(Done);
  }

  // Before the server's threads.
  Interrupt interrupt_;
  Finish finish_;
  std::unique_ptr<RequestStore> requests_;
  std::unique_ptr<CloudServer> server_;
  Background asked_;
};

void run(const QStringList& arguments, QObject& owner, const Finish& finish) {
  const auto request = CloudRequest::parse(arguments);
  if (!request) {
    printError(request.error());
    return finish(WrongUsage);
  }
  try {
    if (request->verb == CloudRequest::Verb::Build)
      build(*request, finish);
    else
      new Serving(*request, finish, owner);
  } catch (const DescribedError& error) {
    printError(error.description());
    finish(Failed);
  }
}

}  // namespace

Command cloudCommand() {
  return {QStringLiteral("cloud"), CloudRequest::usage(),
          QStringLiteral("DIR altındaki içerik paketlerini yayımlar ya da yayımlananı sunar"),
          &run};
}

}  // namespace orvex
