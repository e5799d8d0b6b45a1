#include "AudioCommand.h"

#include "Arguments.h"
#include "Output.h"
#include "engines/AudioUnitList.h"
#include "platform/Platform.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace orvex {
namespace {

QString usage() {
  return QStringLiteral("[--json]");
}

QJsonObject json(const AudioUnitItem& item) {
  return {{QStringLiteral("id"), item.id},
          {QStringLiteral("name"), item.name},
          {QStringLiteral("manufacturer"), item.manufacturer},
          {QStringLiteral("version"), item.version},
          {QStringLiteral("typeName"), item.typeName},
          {QStringLiteral("sandboxSafe"), item.sandboxSafe},
          {QStringLiteral("passesAUVal"), item.passesAUVal}};
}

void printItems(const QList<AudioUnitItem>& items) {
  if (items.isEmpty()) return printLine(QStringLiteral("Kayıtlı AU effect bulunamadı."));
  QList<QStringList> rows{{QStringLiteral("Ad"), QStringLiteral("Üretici"), QStringLiteral("Sürüm"),
                           QStringLiteral("Tür"), QStringLiteral("AUVAL"),
                           QStringLiteral("SANDBOX")}};
  const auto yes = [](bool value) { return value ? QStringLiteral("evet") : QStringLiteral("—"); };
  for (const AudioUnitItem& item : items)
    rows.append({item.name, item.manufacturer, item.version, item.typeName, yes(item.passesAUVal),
                 yes(item.sandboxSafe)});
  printColumns(rows);
}

void runAudio(const QStringList& arguments, QObject&, const Finish& finish) {
  const auto asJson = onlyJson(QStringLiteral("audio"), usage(), arguments);
  if (!asJson) {
    printError(asJson.error());
    return finish(WrongUsage);
  }
  const auto items = listAudioUnits(*makePlatform()->audioComponents(), {});
  if (*asJson) {
    QJsonArray array;
    for (const AudioUnitItem& item : items) array.append(json(item));
    printJson(QJsonDocument(array));
  } else {
    printItems(items);
  }
  finish(Done);
}

}  // namespace

Command audioCommand() {
  return {QStringLiteral("audio"), usage(), QStringLiteral("kayıtlı ses effect'lerini listeler"),
          &runAudio};
}

}  // namespace orvex
