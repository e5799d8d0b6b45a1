#include "PacksRequest.h"

namespace orvex {

QString PacksRequest::usage() {
  return QStringLiteral("[list|installed|install ID|uninstall ID] [--json]");
}

std::expected<PacksRequest, QString> PacksRequest::parse(const QStringList& arguments) {
  const auto wrongUsage = [](const QString& reason) {
    return std::unexpected(QStringLiteral("%1\nKullanım: orvex packs %2").arg(reason, usage()));
  };
  PacksRequest request;
  QStringList words;
  for (const QString& argument : arguments) {
    if (argument == u"--json")
      request.json = true;
    else if (argument.startsWith(u"--"))
      return wrongUsage(QStringLiteral("\"%1\" diye bir seçenek yok.").arg(argument));
    else
      words.append(argument);
  }
  const QString verb = words.value(0, QStringLiteral("list"));
  bool takesID = false;
  if (verb == u"install" || verb == u"uninstall") {
    takesID = true;
    request.verb = verb == u"install" ? Verb::Install : Verb::Uninstall;
    request.id = words.value(1);
  } else if (verb == u"installed") {
    request.verb = Verb::Installed;
  } else if (verb != u"list") {
    return wrongUsage(QStringLiteral("\"%1\" anlaşılmadı.").arg(verb));
  }
  if (takesID && request.id.isEmpty())
    return wrongUsage(QStringLiteral("\"%1\" bir pack kimliği ister.").arg(verb));
  if (const qsizetype expected = takesID ? 2 : 1; words.size() > expected)
    return wrongUsage(QStringLiteral("\"%1\" fazla.").arg(words[expected]));
  return request;
}

}  // namespace orvex
