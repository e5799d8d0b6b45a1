#pragma once

#include "platform/SystemLog.h"

#include <QLoggingCategory>
#include <QString>

namespace orvex {

/// Lines of the logging category "vantrelo.orvex", which Qt takes to the journal or to standard
/// error and which QT_LOGGING_RULES switches.
class CategoryLog final : public SystemLog {
 public:
  void line(const QString& text) override { qCInfo(category_, "%s", qUtf8Printable(text)); }

 private:
  const QLoggingCategory category_{"vantrelo.orvex", QtInfoMsg};
};

}  // namespace orvex
