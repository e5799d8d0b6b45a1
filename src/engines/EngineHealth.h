#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace orvex {
Q_NAMESPACE

/// The state of an engine's source.
enum class EngineHealth {
  /// Has a source and found at least one item.
  Ready,
  /// No folder has been granted yet.
  NeedsAccess,
  /// The source was read and holds no item.
  Empty,
  /// Cannot run on this system.
  Unavailable,
  /// Reading the source failed.
  Error,
};
Q_ENUM_NS(EngineHealth)

/// "ready", "needsAccess", "empty", "unavailable" or "error".
[[nodiscard]] QString rawValue(EngineHealth health);
/// The inverse of `rawValue`; nothing for any other text.
[[nodiscard]] std::optional<EngineHealth> engineHealthFromRawValue(QStringView raw);

/// What an engine reports of itself to the pages.
struct EngineSummary {
  Q_GADGET
  // As its number: views cannot compare enumerators that they read from a value.
  Q_PROPERTY(int health READ healthNumber)
  Q_PROPERTY(QString title MEMBER title)
  Q_PROPERTY(QString detail MEMBER detail)
  Q_PROPERTY(qint64 count MEMBER count)

 public:
  EngineHealth health = EngineHealth::NeedsAccess;
  QString title;
  /// The granted folder's path, or the prompt to grant one.
  QString detail;
  /// Items held now.
  qint64 count = 0;

  [[nodiscard]] int healthNumber() const noexcept { return static_cast<int>(health); }

  friend bool operator==(const EngineSummary&, const EngineSummary&) = default;
};

}  // namespace orvex
