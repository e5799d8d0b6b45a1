#pragma once

#include <QString>

namespace orvex {

/// `seconds` as "HH:MM:SS.mmm", each part truncated; hours do not wrap. Negative times read as
/// zero, infinite ones and not-a-number as one em dash.
[[nodiscard]] QString orvexTimecodeLike(double seconds);

}  // namespace orvex
