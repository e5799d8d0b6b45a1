#pragma once

#include <QString>

#include <ostream>

// Found by the test framework through the type's own namespace, the global one.
inline void PrintTo(const QString& text, std::ostream* stream) {
  *stream << '"' << qPrintable(text) << '"';
}
