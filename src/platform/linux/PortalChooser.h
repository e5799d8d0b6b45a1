#pragma once

#include "platform/FolderChooser.h"

#include <QObject>

namespace orvex {

class SessionBus;
class SystemLog;

/// The desktop's own dialog, through the session's portal: `org.freedesktop.portal.FileChooser`,
/// from version 3 on, which is the first to know folders. Where there is none the request goes to
/// the fallback.
class PortalChooser final : public FolderChooser {
 public:
  /// Both outlive this.
  PortalChooser(SessionBus& bus, SystemLog& log) : bus_(bus), log_(log) {}

  /// Used where no portal can be asked; null for none. Outlives this, or is taken back.
  void setFallbackChooser(FolderChooser* fallback) { fallback_ = fallback; }

  void choose(const QString& title, const QString& prompt, const QUrl& start,
              Chosen chosen) override;

 private:
  SessionBus& bus_;
  SystemLog& log_;
  FolderChooser* fallback_ = nullptr;
  /// Parent of the requests under way: they end with this.
  QObject requests_;
};

}  // namespace orvex
