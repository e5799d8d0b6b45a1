#pragma once

#include <QString>

namespace orvex {

/// `value` with exactly `decimals` (0 to 17) digits behind a point, in every locale, rounded as C's
/// printf rounds "%.*f": the nearest text to the exact binary value, ties to even. An infinity or
/// not-a-number reads "inf", "-inf" or "nan".
[[nodiscard]] QString fixedText(double value, int decimals);

/// A size as people read it, in steps of a thousand: "12.3 MB". Below zero and not-a-number count
/// 0.
[[nodiscard]] QString bytesText(double bytes);

}  // namespace orvex
