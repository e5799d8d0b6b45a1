#pragma once

#include <QObject>
#include <QUrl>

namespace orvex {

class OrvexState;
class Workspace;

/// What pages have the desktop do; what it cannot do is said in a toast. Main thread only.
class OrvexDesktop : public QObject {
  Q_OBJECT

 public:
  /// Both outlive this.
  OrvexDesktop(OrvexState& state, Workspace& workspace) : state_(state), workspace_(workspace) {}

  /// Shows a local file or folder in the file manager.
  Q_INVOKABLE void reveal(const QUrl& file);
  /// Opens an address of https in the browser; any other does nothing.
  Q_INVOKABLE void openPage(const QUrl& page);

 private:
  OrvexState& state_;
  Workspace& workspace_;
};

}  // namespace orvex
