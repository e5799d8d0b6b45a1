#pragma once

#include "platform/SystemLog.h"
#include "platform/Workspace.h"

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QUrl>

namespace orvex {

/// A desktop on which nothing happens, and a log: both remember what they were asked for.
class RecordedDesktop : public Workspace, public SystemLog {
 public:
  bool open(const QUrl& url) override {
    opened.append(url.toString());
    return opens;
  }
  void launch(const QUrl& application, Launched launched) override {
    launches.append(application);
    QTimer::singleShot(0, &context_, [this, launched = std::move(launched)] {
      if (helper) helper();
      launched(launchError.isEmpty() ? std::expected<void, QString>()
                                     : std::unexpected(launchError));
    });
  }
  void reveal(const QUrl&, Revealed) override {}
  void line(const QString& text) override { lines.append(text); }

  QStringList opened;
  bool opens = true;
  QList<QUrl> launches;
  /// What an application does that is launched.
  std::function<void()> helper;
  /// Why none can be; empty when it can.
  QString launchError;
  QStringList lines;

 private:
  QObject context_;
};

}  // namespace orvex
