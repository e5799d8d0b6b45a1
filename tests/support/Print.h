#pragma once

#include <QString>

#include <ostream>

// Found by the test framework through the type's own namespace, the global one: for values and for
// what is written after a failure.
inline std::ostream& operator<<(std::ostream& stream, const QString& text) {
  return stream << qPrintable(text);
}
inline void PrintTo(const QString& text, std::ostream* stream) {
  *stream << '"' << text << '"';
}
