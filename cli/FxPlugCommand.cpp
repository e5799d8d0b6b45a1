#include "FxPlugCommand.h"

#include "InventoryCommand.h"
#include "base/FileUrl.h"
#include "engines/FxPlugScan.h"

namespace orvex {
namespace {

QStringList columns(const FxPlugItem& item) {
  return {item.name, item.version, item.bundleIdentifier};
}

QJsonObject fields(const FxPlugItem& item) {
  return {{QStringLiteral("id"), item.id},
          {QStringLiteral("name"), item.name},
          {QStringLiteral("bundleIdentifier"), item.bundleIdentifier},
          {QStringLiteral("version"), item.version},
          {QStringLiteral("path"), fileText(item.fileURL())}};
}

void run(const QStringList& arguments, QObject&, const Finish& finish) {
  runInventory(QStringLiteral("fxplug"), arguments, finish, &scanFxPlugs,
               {QStringLiteral("Ad"), QStringLiteral("Sürüm"), QStringLiteral("Bundle kimliği")},
               &columns, &fields);
}

}  // namespace

Command fxPlugCommand() {
  return {
      QStringLiteral("fxplug"), InventoryRequest::usage(),
      QStringLiteral("DIR altındaki plug-in bundle'ları (Mac'te DIR: /Library/Plug-Ins/FxPlug)"),
      &run};
}

}  // namespace orvex
