#pragma once

#include <QList>
#include <QString>

#include <stop_token>

namespace orvex {

/// One audio effect as the system has it registered.
struct AudioComponent {
  /// The type code of effects, "aufx".
  static constexpr quint32 kEffectType = 0x6175'6678;

  QString name;
  QString manufacturerName;
  QString versionString;
  QString typeName;
  /// It declares itself safe to load in a confined process.
  bool sandboxSafe = false;
  /// It passed the system's validation.
  bool passesValidation = false;
  quint32 manufacturer = 0;
  quint32 type = kEffectType;
  quint32 subType = 0;

  friend bool operator==(const AudioComponent&, const AudioComponent&) = default;
};

/// The system's registry of audio components.
class AudioComponents {
 public:
  virtual ~AudioComponents() = default;

  /// All registered effects, in the system's order; no instruments, no generators. Cannot fail:
  /// what cannot be read is left out. Takes long; ends soon, with fewer of them, after a stop was
  /// requested. Any thread.
  [[nodiscard]] virtual QList<AudioComponent> effects(const std::stop_token& stop) = 0;
};

}  // namespace orvex
