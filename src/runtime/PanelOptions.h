#pragma once

#include "platform/hosts/HostChoice.h"
#include "shell/OrvexPage.h"

#include <QSizeF>
#include <QString>
#include <QStringList>

#include <expected>
#include <optional>

namespace orvex {

/// What the panel was started with.
struct PanelOptions {
  HostChoice host;
  OrvexPage page = OrvexPage::home;
  /// In points; the controller's own size where not given.
  std::optional<QSizeF> size;
  /// Render the page into this PNG file and exit, instead of opening a window.
  QString screenshot;
  /// Set when there is only this text to print.
  QString message;

  /// Reads the program's arguments (the first is its name) and the value of `ORVEX_HOST`, which
  /// `--host` overrides. The error, in Turkish, says what can be written.
  [[nodiscard]] static std::expected<PanelOptions, QString> parse(const QStringList& arguments,
                                                                  const QString& hostVariable);
};

}  // namespace orvex
