// Stands before every test (see orvex_test in tests/CMakeLists.txt): what they need again and
// again.
#pragma once

#include "support/TemporaryTree.h"
#include "support/Wait.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <ostream>
#include <thread>

using namespace orvex;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// Failures show Qt's texts as texts, not as containers of characters. Found by the test framework
// through the type's own namespace: for values and for what is written after a failure.
inline std::ostream& operator<<(std::ostream& stream, const QString& text) {
  return stream << qPrintable(text);
}
inline void PrintTo(const QString& text, std::ostream* stream) {
  *stream << '"' << text << '"';
}
