#include "HostRequest.h"

#include <cmath>

namespace orvex {
namespace {

QString wrongUsage(const QString& reason) {
  return QStringLiteral("%1\nKullanım: orvex host %2").arg(reason, HostRequest::usage());
}

}  // namespace

QString HostRequest::usage() {
  return QStringLiteral("[status|start|end|seconds S|frames N|action NAME] [--json]");
}

std::expected<HostRequest, QString> HostRequest::parse(const QStringList& arguments) {
  HostRequest request;
  QStringList words;
  for (const QString& argument : arguments) {
    if (argument == u"--json")
      request.json = true;
    else if (argument.startsWith(u"--"))
      return std::unexpected(
          wrongUsage(QStringLiteral("\"%1\" diye bir seçenek yok.").arg(argument)));
    else
      words.append(argument);
  }

  const QString verb = words.value(0, QStringLiteral("status"));
  const QString value = words.value(1);
  bool takesValue = true;
  bool valid = true;
  if (verb == u"seconds") {
    request.verb = Verb::Seconds;
    request.seconds = value.toDouble(&valid);
    valid = valid && std::isfinite(request.seconds);
  } else if (verb == u"frames") {
    request.verb = Verb::Frames;
    request.frames = value.toLongLong(&valid);
  } else if (verb == u"action") {
    request.verb = Verb::Action;
    request.action = value;
  } else {
    takesValue = false;
    if (verb == u"start")
      request.verb = Verb::Start;
    else if (verb == u"end")
      request.verb = Verb::End;
    else if (verb != u"status")
      return std::unexpected(wrongUsage(QStringLiteral("\"%1\" anlaşılmadı.").arg(verb)));
  }
  if (takesValue && words.size() < 2)
    return std::unexpected(wrongUsage(QStringLiteral("\"%1\" bir değer ister.").arg(verb)));
  if (!valid)
    return std::unexpected(
        wrongUsage(QStringLiteral("\"%1\" bir sayı değil (ondalık ayırıcı noktadır).").arg(value)));
  if (const qsizetype expected = takesValue ? 2 : 1; words.size() > expected)
    return std::unexpected(wrongUsage(QStringLiteral("\"%1\" fazla.").arg(words[expected])));
  return request;
}

}  // namespace orvex
