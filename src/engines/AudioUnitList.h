#pragma once

#include "base/Collation.h"

#include <QList>
#include <QString>

#include <stop_token>

namespace orvex {

class AudioComponents;

/// An audio effect that the system has registered.
struct AudioUnitItem {
  /// The codes of manufacturer, type and subtype, in decimal, with "-" between them.
  QString id;
  QString name;
  QString manufacturer;
  QString version;
  QString typeName;
  bool sandboxSafe = false;
  bool passesAUVal = false;

  friend bool operator==(const AudioUnitItem&, const AudioUnitItem&) = default;
};

/// The effects of `components` by manufacturer, those of one by name, in the order of `collation`.
/// Manufacturers that differ only in case are not one: their effects keep the system's order among
/// each other. Blocking; cut short when a stop is requested.
[[nodiscard]] QList<AudioUnitItem> listAudioUnits(AudioComponents& components,
                                                  const std::stop_token& stop,
                                                  const Collation& collation = Collation());

}  // namespace orvex
