#include "Arguments.h"

#include <QDir>
#include <QFile>

namespace orvex {

std::expected<Arguments, QString> Arguments::split(const QStringList& arguments,
                                                   const QStringList& valued) {
  Arguments split;
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const QString& argument = arguments[i];
    if (split.values.contains(argument) || (split.json && argument == u"--json"))
      return std::unexpected(QStringLiteral("\"%1\" iki kez yazılmış.").arg(argument));
    if (argument == u"--json") {
      split.json = true;
    } else if (valued.contains(argument)) {
      if (++i == arguments.size())
        return std::unexpected(QStringLiteral("\"%1\" bir değer ister.").arg(argument));
      const QString& value = arguments[i];
      if (value.isEmpty())
        return std::unexpected(QStringLiteral("\"%1\" boş bırakılmış.").arg(argument));
      split.values.insert(argument, value);
    } else if (argument.startsWith(u"--")) {
      return std::unexpected(QStringLiteral("\"%1\" diye bir seçenek yok.").arg(argument));
    } else {
      split.words.append(argument);
    }
  }
  return split;
}

QByteArray absolutePath(const QString& path) {
  return QFile::encodeName(QDir::current().absoluteFilePath(path));
}

std::unexpected<QString> wrongUsage(const QString& command, const QString& usage,
                                    const QString& reason) {
  return std::unexpected(QStringLiteral("%1\nKullanım: orvex %2 %3").arg(reason, command, usage));
}

std::expected<bool, QString> onlyJson(const QString& command, const QString& usage,
                                      const QStringList& arguments) {
  const auto given = Arguments::split(arguments);
  if (!given) return wrongUsage(command, usage, given.error());
  if (!given->words.isEmpty())
    return wrongUsage(command, usage, QStringLiteral("\"%1\" anlaşılmadı.").arg(given->words[0]));
  return given->json;
}

}  // namespace orvex
