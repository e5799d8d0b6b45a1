#include "CloudRequest.h"

#include <functional>
#include <map>

namespace orvex {
namespace {

std::unexpected<QString> wrongUsage(const QString& reason) {
  return std::unexpected(
      QStringLiteral("%1\nKullanım: orvex cloud %2").arg(reason, CloudRequest::usage()));
}

// Takes a whole number of at most `maximum`.
template <typename Number>
std::function<bool(const QString&)> numberInto(Number& target, qulonglong maximum) {
  return [&target, maximum](const QString& text) {
    bool ok = false;
    const qulonglong value = text.toULongLong(&ok);
    target = static_cast<Number>(value);
    return ok && value <= maximum;
  };
}

std::function<bool(const QString&)> textInto(QString& target) {
  return [&target](const QString& text) {
    target = text;
    return !text.isEmpty();
  };
}

}  // namespace

QString CloudRequest::usage() {
  return QStringLiteral(
      "build DIR [--base-url URL] [--json] | "
      "serve DIR [--address IP] [--port N] [--cert FILE --key FILE] [--rate BYTES]");
}

std::expected<CloudRequest, QString> CloudRequest::parse(const QStringList& arguments) {
  CloudRequest request;
  const QString verb = arguments.value(0);
  if (verb == u"serve")
    request.verb = Verb::Serve;
  else if (verb != u"build")
    return wrongUsage(verb.isEmpty() ? QStringLiteral("build ya da serve yaz.")
                                     : QStringLiteral("\"%1\" anlaşılmadı.").arg(verb));

  std::map<QString, std::function<bool(const QString&)>> options;
  if (request.verb == Verb::Build) {
    options[QStringLiteral("--base-url")] = textInto(request.baseURL);
  } else {
    options[QStringLiteral("--address")] = textInto(request.address);
    options[QStringLiteral("--port")] = numberInto(request.port, 65535);
    options[QStringLiteral("--cert")] = textInto(request.certificate);
    options[QStringLiteral("--key")] = textInto(request.key);
    options[QStringLiteral("--rate")] = numberInto(request.rate, 1'000'000'000'000);
  }
  QStringList words;
  for (qsizetype i = 1; i < arguments.size(); ++i) {
    const QString& argument = arguments[i];
    if (argument == u"--json" && request.verb == Verb::Build) {
      request.json = true;
    } else if (const auto option = options.find(argument); option != options.end()) {
      if (++i == arguments.size())
        return wrongUsage(QStringLiteral("\"%1\" bir değer ister.").arg(argument));
      if (!option->second(arguments[i]))
        return wrongUsage(QStringLiteral("\"%1\" için \"%2\" olmaz.").arg(argument, arguments[i]));
    } else if (argument.startsWith(u"--")) {
      return wrongUsage(QStringLiteral("\"%1\" diye bir seçenek yok.").arg(argument));
    } else {
      words.append(argument);
    }
  }
  if (words.isEmpty() || words[0].isEmpty())
    return wrongUsage(QStringLiteral("Paketlerin bulunduğu klasörü yaz."));
  if (words.size() > 1) return wrongUsage(QStringLiteral("\"%1\" fazla.").arg(words[1]));
  if (request.certificate.isEmpty() != request.key.isEmpty())
    return wrongUsage(QStringLiteral("--cert ile --key birlikte verilir."));
  request.folder = words[0];
  return request;
}

}  // namespace orvex
