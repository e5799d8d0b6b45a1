#pragma once

#include "base/Background.h"
#include "engines/AudioUnitList.h"
#include "engines/EngineRegistry.h"
#include "engines/FirstReading.h"
#include "engines/Inventory.h"

#include <QDateTime>

#include <memory>

namespace orvex {

class AudioComponents;

/// The inventory of the audio effects that the system has registered. Main thread only.
class AudioUnitRegistry : public orvex::EngineRegistry {
  Q_OBJECT
  Q_PROPERTY(orvex::EngineHealth health READ health NOTIFY changed FINAL)
  Q_PROPERTY(QDateTime lastRefresh READ lastRefresh NOTIFY changed FINAL)
  Q_PROPERTY(qint64 validatedCount READ validatedCount NOTIFY changed FINAL)
  Q_PROPERTY(qint64 sandboxSafeCount READ sandboxSafeCount NOTIFY changed FINAL)
  Q_PROPERTY(bool refreshing READ isRefreshing NOTIFY refreshingChanged FINAL)

 public:
  /// Starts with an empty inventory and refreshes it at once.
  explicit AudioUnitRegistry(std::shared_ptr<AudioComponents> components,
                             FirstReading firstReading = nullptr, QObject* parent = nullptr);

  /// Asks the system anew, without waiting. What it last answered stays published until then; of
  /// two refreshes at once the later one counts.
  Q_INVOKABLE void refresh();
  [[nodiscard]] bool isRefreshing() const noexcept { return background_.isRunning(); }

  /// In the order of `listAudioUnits`. The reference stays good; its contents change with
  /// `changed`.
  [[nodiscard]] const QList<AudioUnitItem>& items() const noexcept { return inventory_.items; }
  /// The positions in `items` of those whose name or manufacturer contains `query`; all when it is
  /// blank.
  [[nodiscard]] QList<qsizetype> matching(QStringView query) const {
    return inventory_.search.find(query);
  }
  /// `Ready` or `Empty`.
  [[nodiscard]] EngineHealth health() const noexcept;
  /// When the inventory was last published; at first, when the registry was made.
  [[nodiscard]] const QDateTime& lastRefresh() const noexcept { return lastRefresh_; }
  [[nodiscard]] qint64 validatedCount() const;
  [[nodiscard]] qint64 sandboxSafeCount() const;
  [[nodiscard]] EngineSummary summary() const override;

 Q_SIGNALS:
  void refreshingChanged();

 private:
  void publish(Inventory<AudioUnitItem> found);

  const std::shared_ptr<AudioComponents> components_;
  const FirstReading firstReading_;
  Inventory<AudioUnitItem> inventory_;
  QDateTime lastRefresh_ = QDateTime::currentDateTimeUtc();
  Background background_;
};

}  // namespace orvex
