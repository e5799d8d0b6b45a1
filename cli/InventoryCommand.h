#pragma once

#include "Command.h"
#include "Output.h"
#include "TerminalProgress.h"
#include "engines/Inventory.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <expected>

namespace orvex {

/// What follows the name of a command that lists a folder.
struct InventoryRequest {
  /// Absolute, raw bytes.
  QByteArray folder;
  bool json = false;

  [[nodiscard]] static QString usage() { return QStringLiteral("DIR [--json]"); }
  /// Reads the arguments after the command's name; the error, in Turkish, says what can be written.
  [[nodiscard]] static std::expected<InventoryRequest, QString> parse(const QString& command,
                                                                      const QStringList& arguments);
};

/// Whether `folder` can be listed; otherwise says why on standard error.
[[nodiscard]] bool isListable(const QByteArray& folder);
/// Says on standard error how many folders could not be read, if any.
void printSkipped(qint64 folders);

/// Runs a command that lists what `scan` finds: `fields` gives an item's JSON object, `columns`
/// what the table shows of it below `headings`.
template <typename Item>
void runInventory(const QString& command, const QStringList& arguments, const Finish& finish,
                  Inventory<Item> (*scan)(const QByteArray&, const WorkControl&,
                                          const ScanOptions&),
                  const QStringList& headings, QStringList (*columns)(const Item&),
                  QJsonObject (*fields)(const Item&)) {
  const auto request = InventoryRequest::parse(command, arguments);
  if (!request) {
    printError(request.error());
    return finish(WrongUsage);
  }
  if (!isListable(request->folder)) return finish(Failed);
  Inventory<Item> inventory;
  try {
    TerminalProgress progress(TerminalProgress::Unit::Items);
    inventory =
        scan(request->folder, {{}, [&progress](Progress latest) { progress.show(latest); }}, {});
  } catch (const DescribedError& error) {
    printError(error.description());
    return finish(Failed);
  }
  if (request->json) {
    QJsonArray items;
    for (const Item& item : std::as_const(inventory.items)) items.append(fields(item));
    printJson(QJsonDocument(items));
  } else if (inventory.items.isEmpty()) {
    printLine(QStringLiteral("Bu klasörde listelenecek bir şey yok."));
  } else {
    QList<QStringList> rows{headings};
    for (const Item& item : std::as_const(inventory.items)) rows.append(columns(item));
    printColumns(rows);
  }
  printSkipped(inventory.skippedFolders);
  finish(Done);
}

}  // namespace orvex
