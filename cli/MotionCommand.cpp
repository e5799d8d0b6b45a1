#include "MotionCommand.h"

#include "InventoryCommand.h"
#include "base/FileUrl.h"
#include "engines/MotionTemplateScan.h"

namespace orvex {
namespace {

QStringList columns(const MotionTemplateItem& item) {
  return {item.name(), rawValue(item.kind), item.category(), item.id()};
}

QJsonObject fields(const MotionTemplateItem& item) {
  const auto preview = item.previewURL();
  return {{QStringLiteral("id"), item.id()},
          {QStringLiteral("name"), item.name()},
          {QStringLiteral("kind"), rawValue(item.kind)},
          {QStringLiteral("category"), item.category()},
          {QStringLiteral("path"), fileText(item.fileURL())},
          {QStringLiteral("previewPath"), preview ? QJsonValue(fileText(*preview)) : QJsonValue()}};
}

void run(const QStringList& arguments, QObject&, const Finish& finish) {
  runInventory(QStringLiteral("motion"), arguments, finish, &scanMotionTemplates,
               {QStringLiteral("Ad"), QStringLiteral("Tür"), QStringLiteral("Kategori"),
                QStringLiteral("Dosya")},
               &columns, &fields);
}

}  // namespace

Command motionCommand() {
  return {QStringLiteral("motion"), InventoryRequest::usage(),
          QStringLiteral("DIR altındaki Motion template dosyaları"), &run};
}

}  // namespace orvex
