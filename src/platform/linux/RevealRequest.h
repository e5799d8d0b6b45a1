#pragma once

#include "base/Background.h"
#include "platform/Workspace.h"

#include <QObject>
#include <QUrl>

#include <functional>

class QDBusMessage;

namespace orvex {

class SessionBus;

/// One file that the file manager is asked to show. A desktop whose file manager does not offer
/// that over the bus opens the folder that the file lies in. Deletes itself once it has ended.
class RevealRequest final : public QObject {
  Q_OBJECT

 public:
  using OpenFolder = std::function<bool(const QUrl&)>;

  RevealRequest(SessionBus& bus, const QUrl& file, OpenFolder openFolder,
                Workspace::Revealed revealed, QObject* parent);

 private:
  void askFileManager();
  void answered(const QDBusMessage& reply);
  void end(const std::expected<void, QString>& result);

  SessionBus& bus_;
  const QUrl file_;
  const OpenFolder openFolder_;
  Workspace::Revealed revealed_;
  Background background_;
};

}  // namespace orvex
