#include "PacksCommand.h"

#include "Interrupt.h"
#include "Output.h"
#include "PacksRequest.h"
#include "Service.h"
#include "TerminalProgress.h"
#include "base/FileUrl.h"
#include "base/Text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace orvex {
namespace {

const UniversalInstalledPack* find(const QList<UniversalInstalledPack>& packs, const QString& id) {
  const auto found = std::ranges::find(packs, id, &UniversalInstalledPack::id);
  return found == packs.end() ? nullptr : &*found;
}

QJsonObject json(const UniversalInstalledPack& pack) {
  return {{QStringLiteral("id"), pack.id},
          {QStringLiteral("name"), pack.name},
          {QStringLiteral("version"), pack.version},
          {QStringLiteral("path"), fileText(pack.directoryURL)},
          {QStringLiteral("files"), QJsonArray::fromStringList(pack.files)}};
}

void list(const UniversalPackClient& client, bool asJson) {
  const QList<UniversalPack> packs = client.finalCutPacks();
  const QList<UniversalInstalledPack> installed = client.installedPacks();
  QJsonArray array;
  QList<QStringList> rows{{QStringLiteral("Kimlik"), QStringLiteral("Ad"), QStringLiteral("Sürüm"),
                           QStringLiteral("Kurulu"), QStringLiteral("Boyut")}};
  for (const UniversalPack& pack : packs) {
    const UniversalInstalledPack* const present = find(installed, pack.id);
    const QList<UniversalPackAsset> assets = finalCutAssets(pack);
    const qint64 bytes = totalBytes(assets);
    const QString version = present != nullptr ? present->version : QString();
    if (!asJson) {
      rows.append({pack.id, pack.name, pack.version,
                   present != nullptr ? version : QStringLiteral("—"), bytesText(bytes)});
      continue;
    }
    QStringList files;
    for (const UniversalPackAsset& asset : assets) files.append(asset.file);
    array.append(QJsonObject{{QStringLiteral("id"), pack.id},
                             {QStringLiteral("name"), pack.name},
                             {QStringLiteral("version"), pack.version},
                             {QStringLiteral("installedVersion"),
                              present != nullptr ? QJsonValue(version) : QJsonValue()},
                             {QStringLiteral("bytes"), bytes},
                             {QStringLiteral("files"), QJsonArray::fromStringList(files)}});
  }
  if (asJson) return printJson(QJsonDocument(array));
  if (packs.isEmpty()) return printLine(QStringLiteral("Bu panel için yayımlanmış pack yok."));
  printColumns(rows);
}

void listInstalled(const UniversalPackClient& client, bool asJson) {
  const QList<UniversalInstalledPack> installed = client.installedPacks();
  QJsonArray array;
  QList<QStringList> rows{{QStringLiteral("Kimlik"), QStringLiteral("Ad"), QStringLiteral("Sürüm"),
                           QStringLiteral("Klasör")}};
  for (const UniversalInstalledPack& pack : installed) {
    array.append(json(pack));
    rows.append({pack.id, pack.name, pack.version, fileText(pack.directoryURL)});
  }
  if (asJson) return printJson(QJsonDocument(array));
  if (installed.isEmpty()) return printLine(QStringLiteral("Kurulu pack yok."));
  printColumns(rows);
}

void install(const UniversalPackClient& client, const PacksRequest& request) {
  const Interrupt interrupt;
  const QList<UniversalPack> packs = client.finalCutPacks(interrupt.token());
  const auto pack = std::ranges::find(packs, request.id, &UniversalPack::id);
  if (pack == packs.end())
    throw DescribedError(QStringLiteral("Katalogda bu panel için \"%1\" kimlikli bir pack yok. "
                                        "Kimlikleri \"orvex packs list\" gösterir.")
                             .arg(request.id));
  {
    TerminalProgress progress(TerminalProgress::Unit::Bytes);
    client.install(*pack,
                   {interrupt.token(), [&progress](Progress latest) { progress.show(latest); }});
  }
  if (!request.json) return printLine(printable(pack->name) + QStringLiteral(" yüklendi."));
  const QList<UniversalInstalledPack> installed = client.installedPacks();
  const UniversalInstalledPack* const present = find(installed, request.id);
  printJson(QJsonDocument(present != nullptr ? json(*present)
                                             : QJsonObject{{QStringLiteral("id"), request.id}}));
}

void uninstall(const UniversalPackClient& client, const PacksRequest& request) {
  const QList<UniversalInstalledPack> installed = client.installedPacks();
  client.uninstall(request.id);
  const UniversalInstalledPack* const was = find(installed, request.id);
  if (request.json)
    printJson(QJsonDocument(QJsonObject{{QStringLiteral("id"), request.id}}));
  else if (was != nullptr)
    printLine(printable(was->name) + QStringLiteral(" kaldırıldı."));
  else
    printLine(QStringLiteral("\"%1\" kurulu değil.").arg(request.id));
}

void runPacks(const QStringList& arguments, QObject&, const Finish& finish) {
  const auto request = PacksRequest::parse(arguments);
  if (!request) {
    printError(request.error());
    return finish(WrongUsage);
  }
  runService(finish, [&request](const OrvexServices& services) {
    const UniversalPackClient& client = services.packs;
    switch (request->verb) {
      case PacksRequest::Verb::List:
        return list(client, request->json);
      case PacksRequest::Verb::Installed:
        return listInstalled(client, request->json);
      case PacksRequest::Verb::Install:
        return install(client, *request);
      case PacksRequest::Verb::Uninstall:
        return uninstall(client, *request);
    }
  });
}

}  // namespace

Command packsCommand() {
  return {QStringLiteral("packs"), PacksRequest::usage(),
          QStringLiteral("content pack'leri listeler, kurar, kaldırır"), &runPacks};
}

}  // namespace orvex
