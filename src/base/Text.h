#pragma once

#include <QString>

namespace orvex {

/// The text that `utf8` is, replacement characters for what is none. Unlike `QString::fromUtf8` it
/// keeps a byte order mark that it begins with: two names that differ in it stay two.
[[nodiscard]] QString utf8Text(QByteArrayView utf8);

/// `text` with replacement characters for the control characters in it but those in `kept`: the
/// names of files and what servers and hosts say may hold some, and terminals obey them.
[[nodiscard]] QString printable(QString text, QStringView kept = {});

/// `value` with exactly `decimals` (0 to 17) digits behind a point, in every locale, rounded as C's
/// printf rounds "%.*f": the nearest text to the exact binary value, ties to even. An infinity or
/// not-a-number reads "inf", "-inf" or "nan".
[[nodiscard]] QString fixedText(double value, int decimals);

/// A size as people read it, in steps of a thousand: "12.3 MB". Below zero and not-a-number count
/// 0.
[[nodiscard]] QString bytesText(double bytes);

}  // namespace orvex
