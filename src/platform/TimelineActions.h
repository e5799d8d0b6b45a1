#pragma once

#include <QStringList>
#include <QStringView>

#include <algorithm>
#include <array>

namespace orvex {

/// The names of the timeline commands, as the companion's address carries them and hosts take them.
inline constexpr QStringView kToggleRetime = u"toggle-retime";
inline constexpr QStringView kBladeSpeed = u"blade-speed";
inline constexpr QStringView kNormalSpeed = u"normal-speed";
inline constexpr std::array kTimelineActions{kToggleRetime, kBladeSpeed, kNormalSpeed};

[[nodiscard]] inline bool isTimelineAction(QStringView name) {
  return std::ranges::find(kTimelineActions, name) != kTimelineActions.end();
}

/// All of them, for a message.
[[nodiscard]] inline QString timelineActionList() {
  QStringList names;
  for (const QStringView name : kTimelineActions) names.append(name.toString());
  return names.join(QStringLiteral(", "));
}

}  // namespace orvex
