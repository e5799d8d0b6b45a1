#include "engines/AudioUnitRegistry.h"

#include "platform/AudioComponents.h"

#include <algorithm>
#include <utility>

namespace orvex {

AudioUnitRegistry::AudioUnitRegistry(std::shared_ptr<AudioComponents> components,
                                     FirstReading firstReading, QObject* parent)
    : EngineRegistry(parent),
      components_(std::move(components)),
      firstReading_(std::move(firstReading)) {
  refresh();
}

void AudioUnitRegistry::refresh() {
  background_.run(
      [components = components_, gate = firstReading_](const WorkControl& control) mutable {
        awaitFirstReading(std::exchange(gate, nullptr), control.stop);
        Inventory<AudioUnitItem> found{listAudioUnits(*components, control.stop)};
        for (const AudioUnitItem& item : found.items)
          found.search.add({item.name, item.manufacturer});
        return found;
      },
      // Without memory for the list there is none.
      [this](std::expected<Inventory<AudioUnitItem>, std::exception_ptr> found) {
        publish(found ? std::move(*found) : Inventory<AudioUnitItem>());
      });
  Q_EMIT refreshingChanged();
}

void AudioUnitRegistry::publish(Inventory<AudioUnitItem> found) {
  inventory_ = std::move(found);
  lastRefresh_ = QDateTime::currentDateTimeUtc();
  Q_EMIT changed();
  Q_EMIT refreshingChanged();
}

EngineHealth AudioUnitRegistry::health() const noexcept {
  return items().isEmpty() ? EngineHealth::Empty : EngineHealth::Ready;
}

qint64 AudioUnitRegistry::validatedCount() const {
  return std::ranges::count(items(), true, &AudioUnitItem::passesAUVal);
}

qint64 AudioUnitRegistry::sandboxSafeCount() const {
  return std::ranges::count(items(), true, &AudioUnitItem::sandboxSafe);
}

EngineSummary AudioUnitRegistry::summary() const {
  return {health(), QStringLiteral("Audio Units"),
          items().isEmpty()
              ? QStringLiteral("Kayıtlı AU effect bulunamadı.")
              : QStringLiteral("macOS tarafından kayıtlı Audio Unit effect envanteri."),
          items().size()};
}

}  // namespace orvex
