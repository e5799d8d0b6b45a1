#pragma once

#include "support/Program.h"
#include "support/TemporaryTree.h"

namespace orvex {

/// The program as a user runs it who has nothing yet and no host, where nobody owns the companion's
/// scheme.
struct CommandLine : testing::Test {
  CommandLine() {
    for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
      qputenv(name, tree.root());
    for (const char* name : {"XDG_DATA_DIRS", "XDG_CONFIG_DIRS"}) qputenv(name, tree.path("none"));
    for (const char* name : {"ORVEX_SERVICE", "ORVEX_CA_FILE"}) qunsetenv(name);
    qputenv("ORVEX_HOST", "none");
    qputenv("LC_ALL", "C.UTF-8");
  }

  /// Words without spaces.
  [[nodiscard]] static ProgramResult run(const QString& line) { return orvexProgram(words(line)); }
  /// Of a run that is to succeed.
  [[nodiscard]] static QJsonDocument json(const QString& line) {
    const ProgramResult result = run(line);
    EXPECT_EQ(result.exitCode, 0) << line;
    EXPECT_EQ(result.errors, QString());
    return result.json();
  }

  const TemporaryTree tree;
};

}  // namespace orvex
