#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <expected>

namespace orvex {

/// What follows the name of a command, told apart. Options may stand anywhere between the words.
struct Arguments {
  /// What is no option, in its order.
  QStringList words;
  /// What was given to the options that take a value, by their names.
  QMap<QString, QString> values;
  bool json = false;

  /// Knows `--json` and the options `valued`, each of which is followed by a value that is not
  /// empty; none may be given twice. The error, in Turkish, says what is wrong.
  [[nodiscard]] static std::expected<Arguments, QString> split(const QStringList& arguments,
                                                               const QStringList& valued = {});
};

/// The path that was written, from the top of the file system, raw bytes. Links stay, and what ".."
/// and a slash at its end lead to is left to the system.
[[nodiscard]] QByteArray absolutePath(const QString& path);

/// The error of a command that was called wrongly: `reason`, then what can be written.
[[nodiscard]] std::unexpected<QString> wrongUsage(const QString& command, const QString& usage,
                                                  const QString& reason);

/// Of a command that takes nothing but `--json`: whether that was given.
[[nodiscard]] std::expected<bool, QString> onlyJson(const QString& command, const QString& usage,
                                                    const QStringList& arguments);

}  // namespace orvex
