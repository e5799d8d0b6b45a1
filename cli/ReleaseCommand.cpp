#include "ReleaseCommand.h"

#include "Arguments.h"
#include "Output.h"
#include "Service.h"
#include "base/Text.h"
#include "services/SemanticVersion.h"
#include "shell/OrvexConfig.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace orvex {
namespace {

QString usage() {
  return QStringLiteral("[--json]");
}

// As an address, if it is one.
QString address(const QString& text) {
  return QUrl(text, QUrl::StrictMode).toString(QUrl::FullyEncoded);
}

QJsonValue orNull(const QString& text) {
  return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

void print(const ReleaseManifest& manifest, bool asJson) {
  const bool isNewer = SemanticVersion(OrvexConfig::version()) < SemanticVersion(manifest.version);
  const QString download = address(manifest.downloadURL);
  const QString notes = address(manifest.notesURL.value_or(QString()));
  const QString date = manifest.publishedAt.value_or(QString());
  const bool mandatory = manifest.mandatory.value_or(false);
  if (asJson)
    return printJson(QJsonDocument(QJsonObject{{QStringLiteral("version"), manifest.version},
                                               {QStringLiteral("updateAvailable"), isNewer},
                                               {QStringLiteral("downloadURL"), orNull(download)},
                                               {QStringLiteral("notesURL"), orNull(notes)},
                                               {QStringLiteral("publishedAt"), orNull(date)},
                                               {QStringLiteral("mandatory"), mandatory}}));
  printLine(isNewer ? QStringLiteral("Yeni sürüm hazır • ") + printable(manifest.version)
                    : QStringLiteral("Vantrelo Orvex güncel."));
  const auto shown = [](const QString& text) {
    return text.isEmpty() ? QStringLiteral("—") : text;
  };
  printTable(
      {{QStringLiteral("Bu sürüm"), OrvexConfig::version()},
       {QStringLiteral("Son sürüm"), manifest.version},
       {QStringLiteral("Tarih"), shown(date)},
       {QStringLiteral("Zorunlu"), mandatory ? QStringLiteral("evet") : QStringLiteral("hayır")},
       {QStringLiteral("İndirme"), shown(download)},
       {QStringLiteral("Notlar"), shown(notes)}});
}

void runRelease(const QStringList& arguments, QObject&, const Finish& finish) {
  const auto asJson = onlyJson(QStringLiteral("release"), usage(), arguments);
  if (!asJson) {
    printError(asJson.error());
    return finish(WrongUsage);
  }
  runService(finish, [asJson](const OrvexServices& services) {
    print(services.releases.fetchManifest(), *asJson);
  });
}

}  // namespace

Command releaseCommand() {
  return {QStringLiteral("release"), usage(), QStringLiteral("yeni sürüm olup olmadığını söyler"),
          &runRelease};
}

}  // namespace orvex
