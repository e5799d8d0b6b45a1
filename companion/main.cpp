#include "base/DescribedError.h"
#include "companion/Companion.h"
#include "companion/CompanionRequest.h"
#include "companion/LUTRequests.h"
#include "lut/ManagedLibrary.h"
#include "platform/Platform.h"
#include "platform/SchemeHandler.h"
#include "platform/SystemLog.h"
#include "platform/TimelineActions.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>
#include <unistd.h>

namespace {

using namespace orvex;

enum ExitCode { kDone = 0, kFailed = 1, kRefused = 2 };

constexpr auto kUsage =
    "kullanım: orvex-companion [ADRES | --register | --unregister | --help | --version]\n"
    "\n"
    "  (hiçbiri)     panelin bıraktığı LUT isteklerini yerine getirir ve çıkar\n"
    "  ADRES         isteği yerine getirir:\n"
    "                  vantrelo-finalcut://focus-panel\n"
    "                  vantrelo-finalcut://timeline-action?action=KOMUT\n"
    "                KOMUT: %s\n"
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

// Says how it went to who called and, where that is not a person who would read it twice, to the
// system's log.
int finish(SystemLog& log, const std::expected<QString, QString>& result, ExitCode failure) {
  const QString& sentence = result ? *result : result.error();
  if (::isatty(STDERR_FILENO) == 0)
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

std::expected<std::optional<HostChoice>, QString> chosenHost() {
  const QString variable = qEnvironmentVariable("ORVEX_HOST");
  if (variable.isEmpty()) return std::nullopt;
  const auto choice = HostChoice::parse(variable);
  if (!choice) return std::unexpected(choice.error());
  return *choice;
}

int open(Platform& platform, const QString& url) {
  // All that is asked for is decided on before anything is done.
  const auto request = CompanionRequest::parse(url.toUtf8());
  if (!request) return finish(platform.log(), std::unexpected(request.error()), kRefused);
  const auto host = chosenHost();
  if (!host) return finish(platform.log(), std::unexpected(host.error()), kRefused);
  Companion companion(platform.remotePanel(), *host);
  QTimer::singleShot(0, qApp, [&] {
    companion.perform(*request, [&platform](const std::expected<QString, QString>& result) {
      QCoreApplication::exit(finish(platform.log(), result, kFailed));
    });
  });
  return QCoreApplication::exec();
}

// Each in its turn, until none is left. A panel launches a companion for every request, after it
// has left it, so that there is nothing to wait for.
class Serving {
 public:
  Serving(Platform& platform, const std::expected<std::optional<HostChoice>, QString>& host)
      : log_(platform.log()),
        host_(host),
        companion_(platform.remotePanel(), host.value_or(std::nullopt)) {}

  void next() {
    try {
      while (const auto taken = requests_.take()) {
        if (*taken) return serve(**taken);
        log(taken->error());
      }
      QCoreApplication::exit(kDone);
    } catch (const DescribedError& error) {
      log(error.description());
      QCoreApplication::exit(kFailed);
    }
  }

 private:
  void serve(const PendingLUT& request) {
    const auto done = [this, request](const std::expected<QString, QString>& outcome) {
      log(outcome ? *outcome : outcome.error());
      try {
        requests_.reply(request, outcome);
      } catch (const DescribedError& error) {
        log(error.description());
      }
      // From the loop: what was done may still be on the stack.
      QTimer::singleShot(0, qApp, [this] { next(); });
    };
    if (!host_) return done(std::unexpected(host_.error()));
    try {
      companion_.applyLUT(library_, request.path, done);
    } catch (const DescribedError& error) {
      done(std::unexpected(error.description()));
    }
  }

  void log(const QString& sentence) {
    log_.line(QStringLiteral("[Vantrelo Orvex] companion: %1").arg(sentence));
  }

  SystemLog& log_;
  const std::expected<std::optional<HostChoice>, QString> host_;
  Companion companion_;
  const Directory library_ = Directory::make(ManagedLibrary::userPath());
  const LUTRequests requests_{library_};
};

int serveRequests(Platform& platform) {
  try {
    Serving serving(platform, chosenHost());
    QTimer::singleShot(0, qApp, [&serving] { serving.next(); });
    return QCoreApplication::exec();
  } catch (const DescribedError& error) {
    return finish(platform.log(), std::unexpected(error.description()), kFailed);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments().mid(1);
  const QString argument = arguments.value(0);
  if (argument == u"--help" || argument == u"-h") {
    std::printf(kUsage, qUtf8Printable(timelineActionList()));
    return kDone;
  }
  if (argument == u"--version" || argument == u"-v") {
    std::puts("orvex-companion " ORVEX_VERSION);
    return kDone;
  }
  const bool isRegistration = argument == u"--register" || argument == u"--unregister";
  if (arguments.size() > 1 || (!arguments.isEmpty() && argument.isEmpty()) ||
      (argument.startsWith(u'-') && !isRegistration)) {
    std::fprintf(stderr, kUsage, qUtf8Printable(timelineActionList()));
    return kRefused;
  }
  const auto platform = makePlatform();
  if (arguments.isEmpty()) return serveRequests(*platform);
  if (isRegistration)
    return finish(platform->log(),
                  setRegistered(platform->schemeHandler(), argument == u"--register"), kFailed);
  return open(*platform, argument);
}
