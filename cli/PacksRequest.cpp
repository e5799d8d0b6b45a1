#include "PacksRequest.h"

#include "Arguments.h"

namespace orvex {

QString PacksRequest::usage() {
  return QStringLiteral("[list|installed|install ID|uninstall ID] [--json]");
}

std::expected<PacksRequest, QString> PacksRequest::parse(const QStringList& arguments) {
  const auto refused = [](const QString& reason) {
    return wrongUsage(QStringLiteral("packs"), usage(), reason);
  };
  const auto given = Arguments::split(arguments);
  if (!given) return refused(given.error());
  PacksRequest request{.json = given->json};
  const QStringList& words = given->words;
  const QString verb = words.value(0, QStringLiteral("list"));
  bool takesID = false;
  if (verb == u"install" || verb == u"uninstall") {
    takesID = true;
    request.verb = verb == u"install" ? Verb::Install : Verb::Uninstall;
    request.id = words.value(1);
  } else if (verb == u"installed") {
    request.verb = Verb::Installed;
  } else if (verb != u"list") {
    return refused(QStringLiteral("\"%1\" anlaşılmadı.").arg(verb));
  }
  if (takesID && request.id.isEmpty())
    return refused(QStringLiteral("\"%1\" bir pack kimliği ister.").arg(verb));
  if (const qsizetype expected = takesID ? 2 : 1; words.size() > expected)
    return refused(QStringLiteral("\"%1\" fazla.").arg(words[expected]));
  return request;
}

}  // namespace orvex
