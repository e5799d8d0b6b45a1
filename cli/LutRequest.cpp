#include "LutRequest.h"

#include "Arguments.h"

namespace orvex {

QString LutRequest::usage() {
  return QStringLiteral(
      "prepare SOURCE --root DIR [--library DIR] [--json] | apply SOURCE --root DIR [--json]");
}

std::expected<LutRequest, QString> LutRequest::parse(const QStringList& arguments) {
  const auto refused = [](const QString& reason) {
    return wrongUsage(QStringLiteral("lut"), usage(), reason);
  };
  const auto given =
      Arguments::split(arguments, {QStringLiteral("--root"), QStringLiteral("--library")});
  if (!given) return refused(given.error());
  LutRequest request{.json = given->json};
  const QStringList& words = given->words;
  const QString root = given->values.value(QStringLiteral("--root"));
  const QString library = given->values.value(QStringLiteral("--library"));
  const QString verb = words.value(0);
  if (verb == u"apply")
    request.verb = Verb::Apply;
  else if (verb != u"prepare")
    return refused(verb.isEmpty() ? QStringLiteral("Ne yapılacağını yaz.")
                                  : QStringLiteral("\"%1\" anlaşılmadı.").arg(verb));
  if (words.value(1).isEmpty()) return refused(QStringLiteral("Bir LUT dosyası yaz."));
  if (words.size() > 2) return refused(QStringLiteral("\"%1\" fazla.").arg(words[2]));
  if (root.isEmpty())
    return refused(QStringLiteral("--root ile LUT'un içinde olması gereken klasörü yaz."));
  if (request.verb == Verb::Apply && !library.isEmpty())
    return refused(QStringLiteral("--library yalnız \"prepare\" ile yazılır."));
  request.source = absolutePath(words[1]);
  request.root = absolutePath(root);
  if (!library.isEmpty()) request.library = absolutePath(library);
  return request;
}

}  // namespace orvex
