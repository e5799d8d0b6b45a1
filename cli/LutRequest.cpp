#include "LutRequest.h"

#include <QDir>
#include <QFile>

namespace orvex {
namespace {

std::unexpected<QString> wrongUsage(const QString& reason) {
  return std::unexpected(
      QStringLiteral("%1\nKullanım: orvex lut %2").arg(reason, LutRequest::usage()));
}

// Links are kept: what a path leads to is looked at by whoever uses it.
QByteArray absolute(const QString& path) {
  return QFile::encodeName(QDir::current().absoluteFilePath(path));
}

}  // namespace

QString LutRequest::usage() {
  return QStringLiteral(
      "prepare SOURCE --root DIR [--library DIR] [--json] | apply SOURCE --root DIR [--json]");
}

std::expected<LutRequest, QString> LutRequest::parse(const QStringList& arguments) {
  LutRequest request;
  QStringList words;
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const QString& argument = arguments[i];
    if (argument == u"--json") {
      request.json = true;
    } else if (argument == u"--root" || argument == u"--library") {
      const QString value = arguments.value(++i);
      if (value.isEmpty()) return wrongUsage(QStringLiteral("%1 bir klasör ister.").arg(argument));
      (argument == u"--root" ? request.root : request.library) = absolute(value);
    } else if (argument.startsWith(u"--")) {
      return wrongUsage(QStringLiteral("\"%1\" diye bir seçenek yok.").arg(argument));
    } else {
      words.append(argument);
    }
  }
  const QString verb = words.value(0);
  if (verb == u"apply")
    request.verb = Verb::Apply;
  else if (verb != u"prepare")
    return wrongUsage(verb.isEmpty() ? QStringLiteral("Ne yapılacağını yaz.")
                                     : QStringLiteral("\"%1\" anlaşılmadı.").arg(verb));
  if (words.value(1).isEmpty()) return wrongUsage(QStringLiteral("Bir LUT dosyası yaz."));
  if (words.size() > 2) return wrongUsage(QStringLiteral("\"%1\" fazla.").arg(words[2]));
  if (request.root.isEmpty())
    return wrongUsage(QStringLiteral("--root ile LUT'un içinde olması gereken klasörü yaz."));
  if (request.verb == Verb::Apply && !request.library.isEmpty())
    return wrongUsage(QStringLiteral("--library yalnız \"prepare\" ile yazılır."));
  request.source = absolute(words[1]);
  return request;
}

}  // namespace orvex
