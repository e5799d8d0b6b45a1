#pragma once

#include "platform/SystemLog.h"
#include "platform/Workspace.h"

#include <QStringList>
#include <QUrl>

namespace orvex {

/// A desktop on which nothing happens, and a log: both remember what they were asked for.
class RecordedDesktop : public Workspace, public SystemLog {
 public:
  bool open(const QUrl& url) override {
    opened.append(url.toString());
    return opens;
  }
  void launch(const QUrl&, Launched) override {}
  void reveal(const QUrl&, Revealed) override {}
  void line(const QString& text) override { lines.append(text); }

  QStringList opened;
  bool opens = true;
  QStringList lines;
};

}  // namespace orvex
