#pragma once

#include "platform/FolderChooser.h"

#include <QObject>

class QQmlEngine;
class QQuickItem;

namespace orvex {

/// The panel's own folder dialog.
class QuickFolderChooser final : public FolderChooser {
 public:
  /// The dialog is shown in the middle of `area`, which stands in a window. Both outlive this.
  QuickFolderChooser(QQmlEngine& engine, QQuickItem& area) : engine_(engine), area_(area) {}

  void choose(const QString& title, const QString& prompt, const QUrl& start,
              Chosen chosen) override;

 private:
  QQmlEngine& engine_;
  QQuickItem& area_;
  /// Parent of the open dialogs: they end with this.
  QObject dialogs_;
};

}  // namespace orvex
