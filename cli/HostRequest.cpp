#include "HostRequest.h"

#include "Arguments.h"
#include "platform/TimelineActions.h"

#include <cmath>

namespace orvex {

QString HostRequest::usage() {
  return QStringLiteral("[status|start|end|seconds S|frames N|action NAME] [--json]");
}

std::expected<HostRequest, QString> HostRequest::parse(const QStringList& arguments) {
  const auto refused = [](const QString& reason) {
    return wrongUsage(QStringLiteral("host"), usage(), reason);
  };
  const auto given = Arguments::split(arguments);
  if (!given) return refused(given.error());
  HostRequest request{.json = given->json};
  const QStringList& words = given->words;
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
      return refused(QStringLiteral("\"%1\" anlaşılmadı.").arg(verb));
  }
  if (takesValue && words.size() < 2)
    return refused(QStringLiteral("\"%1\" bir değer ister.").arg(verb));
  if (!valid)
    return refused((request.verb == Verb::Frames
                        ? QStringLiteral("\"%1\" 64 bitlik bir tam sayı değil.")
                        : QStringLiteral("\"%1\" bir sayı değil (ondalık ayırıcı noktadır)."))
                       .arg(value));
  if (const qsizetype expected = takesValue ? 2 : 1; words.size() > expected)
    return refused(QStringLiteral("\"%1\" fazla.").arg(words[expected]));
  if (request.verb == Verb::Action && !isTimelineAction(request.action))
    return refused(QStringLiteral("\"%1\" diye bir komut yok. Komutlar: %2.")
                       .arg(request.action, timelineActionList()));
  return request;
}

}  // namespace orvex
