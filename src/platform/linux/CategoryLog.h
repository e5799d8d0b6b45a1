#pragma once

#include "base/Text.h"
#include "platform/SystemLog.h"

#include <QLoggingCategory>
#include <QString>

namespace orvex {

/// Lines of the logging category "vantrelo.orvex", which Qt takes to the journal or to standard
/// error and which QT_LOGGING_RULES switches. Each is one line, whatever a host or a file put into
/// it.
class CategoryLog final : public SystemLog {
 public:
  void line(const QString& text) override {
    qCInfo(category_, "%s", qUtf8Printable(printable(text)));
  }

 private:
  const QLoggingCategory category_{"vantrelo.orvex", QtInfoMsg};
};

}  // namespace orvex
