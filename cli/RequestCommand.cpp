#include "RequestCommand.h"

#include "HostConnection.h"
#include "Output.h"
#include "Service.h"
#include "services/RequestCenterClient.h"
#include "shell/OrvexConfig.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>

#include <expected>

namespace orvex {
namespace {

const QString kDefaultModule = QStringLiteral("final-cut");
const QStringList& modules() {
  static const QStringList values{kDefaultModule,           QStringLiteral("timeline"),
                                  QStringLiteral("motion"), QStringLiteral("audio"),
                                  QStringLiteral("color"),  QStringLiteral("fxplug"),
                                  QStringLiteral("release")};
  return values;
}

QString usage() {
  return QStringLiteral("--title T --detail D [--module M] [--json]");
}

struct Options {
  QString title;
  QString detail;
  QString module;
  bool json = false;
};

std::expected<Options, QString> parse(const QStringList& arguments) {
  const auto wrongUsage = [](const QString& reason) {
    return std::unexpected(QStringLiteral("%1\nKullanım: orvex request %2").arg(reason, usage()));
  };
  Options options{.title = {}, .detail = {}, .module = kDefaultModule};
  const QMap<QString, QString Options::*> texts{{QStringLiteral("--title"), &Options::title},
                                                {QStringLiteral("--detail"), &Options::detail},
                                                {QStringLiteral("--module"), &Options::module}};
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const QString& argument = arguments[i];
    if (argument == u"--json") {
      options.json = true;
    } else if (const auto text = texts.value(argument); text == nullptr) {
      return wrongUsage(QStringLiteral("\"%1\" anlaşılmadı.").arg(argument));
    } else if (++i == arguments.size()) {
      return wrongUsage(QStringLiteral("\"%1\" bir değer ister.").arg(argument));
    } else {
      options.*text = arguments[i];
    }
  }
  if (options.title.trimmed().isEmpty())
    return wrongUsage(QStringLiteral("Talebin başlığını --title ile yaz."));
  if (options.detail.trimmed().isEmpty())
    return wrongUsage(QStringLiteral("Talebin ayrıntısını --detail ile yaz."));
  if (!modules().contains(options.module))
    return wrongUsage(QStringLiteral("\"%1\" diye bir modül yok; modüller: %2.")
                          .arg(options.module, modules().join(QStringLiteral(", "))));
  return options;
}

void send(const Options& options, const HostSnapshot& host, const Finish& finish) {
  runService(finish, [&](const HttpOptions& http) {
    const RequestCenterClient client(OrvexConfig::requestCenterURL(), http);
    const QString id =
        client.send({.title = options.title,
                     .description = options.detail,
                     .module = options.module,
                     .hostName = host.hostName,
                     .hostVersion = host.hostVersion,
                     .sequenceName = host.sequenceAvailable ? host.sequenceName : QString(),
                     .extensionVersion = OrvexConfig::version()});
    if (options.json)
      printJson(QJsonDocument(QJsonObject{{QStringLiteral("id"), id}}));
    else
      printLine(QStringLiteral("Talep gönderildi • ") + printable(id));
  });
}

void runRequest(const QStringList& arguments, QObject& owner, const Finish& finish) {
  const auto refuse = [&finish](const QString& text) {
    printError(text);
    finish(WrongUsage);
  };
  const auto options = parse(arguments);
  if (!options) return refuse(options.error());
  const auto choice = HostChoice::parse(qEnvironmentVariable("ORVEX_HOST"));
  if (!choice) return refuse(QStringLiteral("ORVEX_HOST: ") + choice.error());
  auto* const host = new HostConnection(*choice);
  host->setParent(&owner);
  host->start([host, options = *options, finish] {
    host->stop();
    send(options, host->snapshot(), finish);
  });
}

}  // namespace

Command requestCommand() {
  return {QStringLiteral("request"), usage(), QStringLiteral("Vantrelo'ya bir talep gönderir"),
          &runRequest};
}

}  // namespace orvex
