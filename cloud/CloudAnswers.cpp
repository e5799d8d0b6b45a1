#include "cloud/CloudAnswers.h"

#include "base/Json.h"
#include "cloud/RequestStore.h"
#include "services/ServicePaths.h"

#include <QJsonDocument>

namespace orvex {
namespace {

// Below this folder a name stands for the same bytes for ever.
bool isPackFile(const QByteArray& path) {
  return path.startsWith(QByteArray(ServicePaths::kPacks) + "/files/");
}

CloudAnswer jsonAnswer(int status, const QJsonObject& object) {
  return {status,
          {{"Content-Type", "application/json"}, {"Cache-Control", "no-store"}},
          QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n'};
}

CloudAnswer refusal(int status, const QString& message) {
  return jsonAnswer(status, {{QStringLiteral("ok"), false}, {QStringLiteral("message"), message}});
}

CloudAnswer wrongMethod(const QByteArray& allowed) {
  CloudAnswer answer =
      refusal(405, QStringLiteral("Bu adres %1 ile kullanılır.").arg(QString::fromLatin1(allowed)));
  answer.headers.append({"Allow", allowed});
  return answer;
}

CloudAnswer takeRequest(const CloudExchange& exchange, RequestStore& requests) {
  if (exchange.method != "POST") return wrongMethod("POST");
  if (exchange.bodyTooLong)
    return refusal(
        413,
        QStringLiteral("Talep çok uzun: en çok %1 KiB. Metni kısalt.").arg(kMaximumRequest / 1024));
  // What a page in a browser may send anywhere without being asked is not this.
  if (exchange.contentType.split(';').first().trimmed().toLower() != "application/json")
    return refusal(415, QStringLiteral("Talep application/json olarak gönderilmeli."));
  try {
    return jsonAnswer(
        201, {{QStringLiteral("ok"), true},
              {QStringLiteral("requestId"), requests.add(ReceivedRequest::decode(exchange.body))}});
  } catch (const JsonError& error) {
    return refusal(400, error.description());
  } catch (const RequestStoreError&) {
    // Where the service keeps its files is not the client's concern.
    return refusal(503, QStringLiteral("Talep şu anda saklanamıyor. Biraz sonra yeniden dene."));
  }
}

CloudAnswer sendFile(const CloudExchange& exchange, const Directory& published) {
  const bool headOnly = exchange.method == "HEAD";
  if (exchange.method != "GET" && !headOnly) return wrongMethod("GET, HEAD");
  auto file =
      exchange.path.startsWith('/') ? PublishedFile::open(published, exchange.path) : std::nullopt;
  if (!file) return refusal(404, QStringLiteral("Bu adreste bir şey yok."));

  FileConditions conditions = exchange.conditions;
  // A range is a part of what GET sends.
  if (headOnly) conditions.range.clear();
  constexpr qint64 kSecond = 1'000'000'000;
  const qint64 modified = file->modified / kSecond;
  const FileAnswer part = answerFor(conditions, file->entityTag(), modified, file->bytes);
  CloudAnswer answer{
      part.status,
      {{"ETag", file->entityTag()},
       {"Last-Modified", httpDate(modified)},
       {"Accept-Ranges", "bytes"},
       {"Cache-Control",
        isPackFile(exchange.path) ? "public, max-age=31536000, immutable" : "no-cache"}}};
  const QByteArray total = '/' + QByteArray::number(file->bytes);
  if (part.status == 416) answer.headers.append({"Content-Range", "bytes *" + total});
  if (part.status == 206)
    answer.headers.append({"Content-Range", "bytes " + QByteArray::number(part.offset) + '-' +
                                                QByteArray::number(part.offset + part.bytes - 1) +
                                                total});
  if (part.status == 416) return answer;
  // What is not sent, because it was not asked for or the client has it, still tells its length.
  answer.headers.append({"Content-Type", mediaType(exchange.path)});
  answer.offset = part.offset;
  answer.bytes = part.status == 304 ? file->bytes : part.bytes;
  answer.file = std::move(file);
  return answer;
}

}  // namespace

CloudAnswer answer(const CloudExchange& exchange, const Directory& published,
                   RequestStore& requests) {
  CloudAnswer made = exchange.path == ServicePaths::kRequests ? takeRequest(exchange, requests)
                                                              : sendFile(exchange, published);
  made.headers.emplace_back("X-Content-Type-Options", "nosniff");
  return made;
}

}  // namespace orvex
