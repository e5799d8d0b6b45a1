#pragma once

#include "platform/AudioComponents.h"

#include <QDataStream>

namespace orvex {

/// What the program that reads LV2 writes to its standard output, record after record: a tag, then
/// what belongs to it.
enum class Lv2Record : quint8 {
  /// It begins to read from a bundle; the bundle's URI (QByteArray) follows. Should it not survive
  /// that, the last one written says where it ended.
  Reading = 1,
  /// An effect (AudioComponent) follows.
  Effect = 2,
  /// The list is complete.
  End = 3,
};

/// The version that both ends set on their streams.
inline constexpr auto kLv2StreamVersion = QDataStream::Qt_6_0;

inline QDataStream& operator<<(QDataStream& stream, const AudioComponent& component) {
  return stream << component.name << component.manufacturerName << component.versionString
                << component.typeName << component.sandboxSafe << component.passesValidation
                << component.manufacturer << component.type << component.subType;
}

inline QDataStream& operator>>(QDataStream& stream, AudioComponent& component) {
  return stream >> component.name >> component.manufacturerName >> component.versionString >>
         component.typeName >> component.sandboxSafe >> component.passesValidation >>
         component.manufacturer >> component.type >> component.subType;
}

}  // namespace orvex
