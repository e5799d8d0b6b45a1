#include "RequestCommand.h"

#include "Arguments.h"
#include "HostConnection.h"
#include "Output.h"
#include "Service.h"
#include "base/Text.h"
#include "shell/RequestSubmission.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <expected>

namespace orvex {
namespace {

QString usage() {
  return QStringLiteral("--title T --detail D [--module M] [--json]");
}

struct Options {
  RequestDraft written;
  bool json = false;
};

std::expected<Options, QString> parse(const QStringList& arguments) {
  const auto refused = [](const QString& reason) {
    return wrongUsage(QStringLiteral("request"), usage(), reason);
  };
  const QString title = QStringLiteral("--title");
  const QString detail = QStringLiteral("--detail");
  const QString module = QStringLiteral("--module");
  const QStringList& modules = RequestSubmission::modules();
  const auto given = Arguments::split(arguments, {title, detail, module});
  if (!given) return refused(given.error());
  if (!given->words.isEmpty())
    return refused(QStringLiteral("\"%1\" anlaşılmadı.").arg(given->words[0]));
  if (!given->values.contains(title))
    return refused(QStringLiteral("Talebin başlığını --title ile yaz."));
  if (!given->values.contains(detail))
    return refused(QStringLiteral("Talebin ayrıntısını --detail ile yaz."));
  for (const QString& text : {title, detail})
    if (given->values[text].trimmed().isEmpty())
      return refused(QStringLiteral("\"%1\" boş bırakılmış.").arg(text));
  const Options options{
      {given->values[title], given->values[detail], given->values.value(module, modules.first())},
      given->json};
  if (!modules.contains(options.written.module))
    return refused(QStringLiteral("\"%1\" diye bir modül yok; modüller: %2.")
                       .arg(options.written.module, modules.join(QStringLiteral(", "))));
  return options;
}

void send(const Options& options, const HostSnapshot& host, const Finish& finish) {
  runService(finish, [&](const OrvexServices& services) {
    const QString id = services.requests.send(featureRequest(options.written, host));
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
