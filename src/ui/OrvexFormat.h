#pragma once

#include "engines/EngineHealth.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace orvex {

/// Numbers as the panel writes them: always with a decimal point, whatever the system's language.
class OrvexFormat : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  using QObject::QObject;

  /// "HH:MM:SS.mmm".
  Q_INVOKABLE [[nodiscard]] static QString timecode(double seconds);
  /// "1.25s", or an em dash when not finite.
  Q_INVOKABLE [[nodiscard]] static QString seconds2(double seconds);
  /// Frames per second with two decimals, or an em dash when they are unknown: not finite, or not
  /// above 0.
  Q_INVOKABLE [[nodiscard]] static QString rate(double fps);
  /// Frames per second with two decimals, or an em dash when not finite.
  Q_INVOKABLE [[nodiscard]] static QString finiteRate(double fps);
  /// "812 B", "12.4 KB", "1.2 GB": thousands, not 1024s.
  Q_INVOKABLE [[nodiscard]] static QString bytes(double count);
  /// How many items an engine holds, as a whole number.
  Q_INVOKABLE [[nodiscard]] static QString count(const orvex::EngineSummary& summary);
};

}  // namespace orvex
