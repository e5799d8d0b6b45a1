#pragma once

#include "support/Wait.h"

#include <QJsonDocument>
#include <QProcess>

#include <gtest/gtest.h>

namespace orvex {

/// What a program that has ended leaves; the exit code is -1 when it crashed.
struct ProgramResult {
  int exitCode = -1;
  QString output;
  QString errors;

  [[nodiscard]] QJsonDocument json() const { return QJsonDocument::fromJson(output.toUtf8()); }
};

/// Runs a program to its end in the test's environment, while the event loop here answers it.
[[nodiscard]] inline ProgramResult runProgram(const QString& path, const QStringList& arguments) {
  QProcess process;
  process.start(path, arguments);
  EXPECT_TRUE(
      waitUntil([&] { return process.state() == QProcess::NotRunning; }, std::chrono::seconds(60)))
      << path;
  return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
          QString::fromUtf8(process.readAllStandardOutput()),
          QString::fromUtf8(process.readAllStandardError())};
}

/// The words of a command line, of which none holds a space.
[[nodiscard]] inline QStringList words(const QString& line) {
  return line.split(u' ', Qt::SkipEmptyParts);
}

#ifdef ORVEX_PROGRAM
/// Runs the command line program.
[[nodiscard]] inline ProgramResult orvexProgram(const QStringList& arguments) {
  return runProgram(QStringLiteral(ORVEX_PROGRAM), arguments);
}

/// Runs it with these words, to a failure that gives `reason` and prints nothing else.
inline void expectFailure(const QString& line, int exitCode, QStringView reason) {
  SCOPED_TRACE(line.toStdString());
  const ProgramResult result = orvexProgram(words(line));
  EXPECT_EQ(result.exitCode, exitCode);
  EXPECT_TRUE(result.errors.contains(reason)) << result.errors.toStdString();
  EXPECT_TRUE(result.output.isEmpty()) << result.output.toStdString();
}
#endif

}  // namespace orvex
