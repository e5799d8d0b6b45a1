#include "engines/AudioUnitList.h"

#include "platform/AudioComponents.h"

#include <algorithm>
#include <vector>

namespace orvex {
namespace {

struct Keyed {
  AudioUnitItem item;
  QByteArray manufacturerKey;
  QByteArray nameKey;
};

AudioUnitItem item(const AudioComponent& component) {
  return {QStringLiteral("%1-%2-%3")
              .arg(component.manufacturer)
              .arg(component.type)
              .arg(component.subType),
          component.name,
          component.manufacturerName,
          component.versionString,
          component.typeName,
          component.sandboxSafe,
          component.passesValidation};
}

// Not a weak order: "A" and "a" are equivalent to each other, but effects of "A" are not.
bool precedes(const Keyed& a, const Keyed& b) {
  return a.item.manufacturer == b.item.manufacturer ? a.nameKey < b.nameKey
                                                    : a.manufacturerKey < b.manufacturerKey;
}

}  // namespace

QList<AudioUnitItem> listAudioUnits(AudioComponents& components, const std::stop_token& stop,
                                    const Collation& collation) {
  std::vector<Keyed> effects;
  for (const AudioComponent& component : components.effects(stop))
    effects.push_back({item(component), collation.key(component.manufacturerName),
                       collation.key(component.name)});
  std::ranges::stable_sort(effects, {}, &Keyed::manufacturerKey);
  // Then, as that is no task for a sorting algorithm, each one moves forward past those that it
  // precedes and no further.
  for (auto next = effects.begin(); next != effects.end(); ++next) {
    auto place = next;
    while (place != effects.begin() && precedes(*next, *std::prev(place))) --place;
    std::rotate(place, next, std::next(next));
  }
  QList<AudioUnitItem> items;
  items.reserve(static_cast<qsizetype>(effects.size()));
  for (Keyed& effect : effects) items.append(std::move(effect.item));
  return items;
}

}  // namespace orvex
