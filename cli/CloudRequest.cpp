#include "CloudRequest.h"

#include "Arguments.h"

namespace orvex {
namespace {

// Takes a whole number of at most `maximum`; false for any other text.
template <typename Number>
bool read(const QString& text, qulonglong maximum, Number& number) {
  bool ok = false;
  const qulonglong value = text.toULongLong(&ok);
  number = static_cast<Number>(value);
  return ok && value <= maximum;
}

}  // namespace

QString CloudRequest::usage() {
  return QStringLiteral(
      "build DIR [--base-url URL] [--json] | "
      "serve DIR [--address IP] [--port N] [--cert FILE --key FILE] [--rate BYTES]");
}

std::expected<CloudRequest, QString> CloudRequest::parse(const QStringList& arguments) {
  const auto refused = [](const QString& reason) {
    return wrongUsage(QStringLiteral("cloud"), usage(), reason);
  };
  const QString verb = arguments.value(0);
  if (verb != u"build" && verb != u"serve")
    return refused(verb.isEmpty() ? QStringLiteral("build ya da serve yaz.")
                                  : QStringLiteral("\"%1\" anlaşılmadı.").arg(verb));
  const bool serves = verb == u"serve";
  const QStringList options =
      serves
          ? QStringList{QStringLiteral("--address"), QStringLiteral("--port"),
                        QStringLiteral("--cert"), QStringLiteral("--key"), QStringLiteral("--rate")}
          : QStringList{QStringLiteral("--base-url")};
  const auto given = Arguments::split(arguments.mid(1), options);
  if (!given) return refused(given.error());
  const QStringList& words = given->words;
  const auto& values = given->values;
  CloudRequest request{.verb = serves ? Verb::Serve : Verb::Build, .json = given->json};
  if (serves && request.json)
    return refused(QStringLiteral("\"--json\" yalnız \"build\" ile yazılır."));
  request.baseURL = values.value(QStringLiteral("--base-url"));
  request.address = values.value(QStringLiteral("--address"), request.address);
  request.certificate = values.value(QStringLiteral("--cert"));
  request.key = values.value(QStringLiteral("--key"));
  const QString port = QStringLiteral("--port");
  const QString rate = QStringLiteral("--rate");
  const auto unfit = [&](const QString& name) {
    return refused(QStringLiteral("\"%1\" için \"%2\" olmaz.").arg(name, values[name]));
  };
  if (values.contains(port) && !read(values[port], 65'535, request.port)) return unfit(port);
  if (values.contains(rate) && !read(values[rate], 1'000'000'000'000, request.rate))
    return unfit(rate);
  if (words.isEmpty() || words[0].isEmpty())
    return refused(QStringLiteral("Paketlerin bulunduğu klasörü yaz."));
  if (words.size() > 1) return refused(QStringLiteral("\"%1\" fazla.").arg(words[1]));
  if (request.certificate.isEmpty() != request.key.isEmpty())
    return refused(QStringLiteral("--cert ile --key birlikte verilir."));
  if (request.certificate.isEmpty() && (request.address == u"0.0.0.0" || request.address == u"::"))
    return refused(
        QStringLiteral("\"%1\" için sertifika hazırlanamaz: --address ile panellerin kullanacağı "
                       "adresi ya da --cert ve --key ile kendi sertifikanı ver.")
            .arg(request.address));
  request.folder = words[0];
  return request;
}

}  // namespace orvex
