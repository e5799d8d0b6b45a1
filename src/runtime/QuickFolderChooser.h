#pragma once

#include "platform/FolderChooser.h"

#include <QObject>

class QQmlEngine;
class QQuickWindow;

namespace orvex {

class SystemLog;

/// The toolkit's folder dialog, over the panel's window.
class QuickFolderChooser final : public FolderChooser {
 public:
  /// All of it outlives this.
  QuickFolderChooser(QQmlEngine& engine, QQuickWindow& window, SystemLog& log)
      : engine_(engine), window_(window), log_(log) {}

  void choose(const QString& title, const QString& prompt, Chosen chosen) override;

 private:
  QQmlEngine& engine_;
  QQuickWindow& window_;
  SystemLog& log_;
  /// Parent of the open dialogs: they end with this.
  QObject dialogs_;
};

}  // namespace orvex
