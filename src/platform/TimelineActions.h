#pragma once

#include <QStringList>
#include <QStringView>

#include <algorithm>
#include <array>

namespace orvex {

/// The names of the timeline commands, as the companion's address carries them and hosts take them.
inline constexpr std::array<QStringView, 3> kTimelineActions{u"toggle-retime", u"blade-speed",
                                                             u"normal-speed"};

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
