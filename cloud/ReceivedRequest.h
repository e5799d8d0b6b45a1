#pragma once

#include <QByteArray>
#include <QString>

namespace orvex {

/// What a user asked of the vendor, as the panel sends it.
struct ReceivedRequest {
  QString type;
  QString title;
  QString description;
  QString priority;
  QString module;
  QString source;
  QString appVersion;
  QString extensionVersion;
  QString platform;
  QString renderer;
  QString compName;

  /// Reads the JSON document. Throws `JsonError`; every key must be there, and a title that says
  /// something.
  [[nodiscard]] static ReceivedRequest decode(const QByteArray& json);
};

}  // namespace orvex
