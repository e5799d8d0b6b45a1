#pragma once

#include <QByteArrayView>

namespace orvex {

/// What some programs put before UTF-8 text; it is no part of it.
inline constexpr QByteArrayView kByteOrderMark("\xEF\xBB\xBF");

}  // namespace orvex
