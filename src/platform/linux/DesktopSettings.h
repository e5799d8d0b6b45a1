#pragma once

namespace orvex {

/// Whether the user switched the desktop's animations off: the setting that GNOME and the desktops
/// after it share. False where there is no such setting.
[[nodiscard]] bool desktopAnimationsOff();

}  // namespace orvex
