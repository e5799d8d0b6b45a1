#include "companion/Companion.h"
#include "companion/CompanionRequest.h"
#include "platform/Platform.h"
#include "platform/SchemeHandler.h"
#include "platform/SystemLog.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>

namespace {

using namespace orvex;

enum ExitCode { kDone = 0, kFailed = 1, kRefused = 2 };

constexpr auto kUsage =
    "kullanım: orvex-companion ADRES | --register | --unregister | --help | --version\n"
    "\n"
    "  ADRES         isteği yerine getirir:\n"
    "                  vantrelo-finalcut://focus-panel\n"
    "                  vantrelo-finalcut://timeline-action?action=KOMUT\n"
    "                KOMUT: toggle-retime, blade-speed ya da normal-speed\n"
    "  --register    bu kullanıcının vantrelo-finalcut adreslerini bu programla açtırır\n"
    "  --unregister  o kaydı geri alır\n"
    "\n"
    "ORVEX_HOST (builtin, mpv, mpv:SOKET, none) komutun uygulanacağı hostu seçer; yoksa açık "
    "panelin\n"
    "hostu kullanılır. Çıkış kodu: 0 yapıldı, 1 yapılamadı, 2 yanlış kullanım ya da reddedilen "
    "adres.\n";

QString scheme() {
  return QStringLiteral("vantrelo-finalcut");
}

// Says how it went to who called and to the system's log.
int finish(SystemLog& log, const std::expected<QString, QString>& result, ExitCode failure) {
  const QString& sentence = result ? *result : result.error();
  log.line(QStringLiteral("[Vantrelo Orvex] companion: %1").arg(sentence));
  std::fprintf(result ? stdout : stderr, "%s\n", qUtf8Printable(sentence));
  return result ? kDone : failure;
}

std::expected<QString, QString> setRegistered(SchemeHandler& handler, bool registered) {
  const auto changed = registered ? handler.add(scheme(), QCoreApplication::applicationFilePath())
                                  : handler.remove(scheme());
  if (!changed) return std::unexpected(changed.error());
  return (registered ? QStringLiteral("%1 adresleri artık bu programla açılıyor.")
                     : QStringLiteral("%1 adreslerinin kaydı kaldırıldı."))
      .arg(scheme());
}

int open(Platform& platform, const QString& url) {
  // All that is asked for is decided on before anything is done.
  const auto request = CompanionRequest::parse(url.toUtf8());
  if (!request) return finish(platform.log(), std::unexpected(request.error()), kRefused);
  std::optional<HostChoice> host;
  if (const QString variable = qEnvironmentVariable("ORVEX_HOST"); !variable.isEmpty()) {
    const auto choice = HostChoice::parse(variable);
    if (!choice) return finish(platform.log(), std::unexpected(choice.error()), kRefused);
    host = *choice;
  }
  Companion companion(platform.remotePanel(), host);
  QTimer::singleShot(0, qApp, [&] {
    companion.perform(*request, [&platform](const std::expected<QString, QString>& result) {
      QCoreApplication::exit(finish(platform.log(), result, kFailed));
    });
  });
  return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments().mid(1);
  const QString argument = arguments.value(0);
  if (argument == u"--help" || argument == u"-h") {
    std::fputs(kUsage, stdout);
    return kDone;
  }
  if (argument == u"--version" || argument == u"-v") {
    std::puts("orvex-companion " ORVEX_VERSION);
    return kDone;
  }
  const bool isRegistration = argument == u"--register" || argument == u"--unregister";
  if (arguments.size() != 1 || argument.isEmpty() ||
      (argument.startsWith(u'-') && !isRegistration)) {
    std::fputs(kUsage, stderr);
    return kRefused;
  }
  const auto platform = makePlatform();
  if (isRegistration)
    return finish(platform->log(),
                  setRegistered(platform->schemeHandler(), argument == u"--register"), kFailed);
  return open(*platform, argument);
}
