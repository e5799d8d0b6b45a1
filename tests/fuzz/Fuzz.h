#pragma once

#include <QByteArray>

#include <cstdlib>

// Included once, by the one source of a program.

/// Checks one input; ends the process where something does not hold.
void check(const QByteArray& bytes);

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  check(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
  return 0;
}
