#include "LutsCommand.h"

#include "InventoryCommand.h"
#include "base/FileUrl.h"
#include "engines/LUTScan.h"

namespace orvex {
namespace {

QStringList columns(const LUTItem& item) {
  return {item.name(), item.dimension, item.title.value_or(QStringLiteral("—")), item.id()};
}

QJsonObject fields(const LUTItem& item) {
  return {{QStringLiteral("id"), item.id()},
          {QStringLiteral("name"), item.name()},
          {QStringLiteral("title"), item.title ? QJsonValue(*item.title) : QJsonValue()},
          {QStringLiteral("dimension"), item.dimension},
          {QStringLiteral("path"), fileText(item.fileURL())}};
}

void run(const QStringList& arguments, QObject&, const Finish& finish) {
  runInventory(QStringLiteral("luts"), arguments, finish, &scanLUTs,
               {QStringLiteral("Ad"), QStringLiteral("Boyut"), QStringLiteral("Başlık"),
                QStringLiteral("Dosya")},
               &columns, &fields);
}

}  // namespace

Command lutsCommand() {
  return {QStringLiteral("luts"), InventoryRequest::usage(),
          QStringLiteral("DIR altındaki .cube dosyaları"), &run};
}

}  // namespace orvex
