#pragma once

#include <QStringList>

#include <functional>

class QObject;

namespace orvex {

/// What the program ends with.
enum ExitCode { Done = 0, Failed = 1, WrongUsage = 2 };

/// Ends the program once the event loop runs. Called once by every command.
using Finish = std::function<void(ExitCode)>;

/// One of the program's commands.
struct Command {
  QString name;
  /// What may follow the name, and one line on what it does.
  QString usage;
  QString summary;
  /// Runs the command with the arguments after its name. What has to live until it finishes becomes
  /// a child of `owner`.
  void (*run)(const QStringList& arguments, QObject& owner, const Finish& finish);
};

}  // namespace orvex
