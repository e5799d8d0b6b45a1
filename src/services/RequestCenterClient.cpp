#include "services/RequestCenterClient.h"

#include "base/Json.h"
#include "services/Product.h"

#include <QJsonDocument>

namespace orvex {
namespace {

using namespace std::chrono_literals;

constexpr auto kTimeout = 20s;
// An identifier or a message.
constexpr qint64 kMaximumBytes = qint64{1024} * 1024;

QByteArray encode(const FeatureRequest& request) {
  const QJsonObject diagnostics{
      {QStringLiteral("appVersion"), request.hostName + u' ' + request.hostVersion},
      {QStringLiteral("extensionVersion"), request.extensionVersion},
      {QStringLiteral("platform"), QStringLiteral("macOS")},
      {QStringLiteral("renderer"), QStringLiteral("Workflow Extension")},
      {QStringLiteral("compName"), request.sequenceName}};
  return QJsonDocument(QJsonObject{{QStringLiteral("type"), QStringLiteral("feature")},
                                   {QStringLiteral("title"), request.title},
                                   {QStringLiteral("description"), request.description},
                                   {QStringLiteral("priority"), QStringLiteral("normal")},
                                   {QStringLiteral("module"), request.module},
                                   {QStringLiteral("source"), kProduct},
                                   {QStringLiteral("diagnostics"), diagnostics}})
      .toJson(QJsonDocument::Compact);
}

// What the service answers.
struct OrvexRequestResponse {
  bool ok = false;
  std::optional<QString> requestId;
  std::optional<QString> id;
  std::optional<QString> message;
};

// A body that is something else says nothing.
OrvexRequestResponse decode(const QByteArray& json) {
  try {
    const JsonReader root(json);
    return {.ok = root[u"ok"].boolean(),
            .requestId = root.optional(u"requestId", &JsonReader::string),
            .id = root.optional(u"id", &JsonReader::string),
            .message = root.optional(u"message", &JsonReader::string)};
  } catch (const JsonError&) {
    return {};
  }
}

}  // namespace

RequestCenterError::RequestCenterError(int code, QString description)
    : DescribedError(std::move(description)), code_(code) {}

RequestCenterClient::RequestCenterClient(QUrl endpoint, HttpOptions http)
    : endpoint_(std::move(endpoint)), http_(std::move(http)) {}

QString RequestCenterClient::send(const FeatureRequest& request,
                                  const std::stop_token& stop) const {
  const HttpResponse response =
      HttpClient(http_).send({.url = endpoint_,
                              .method = "POST",
                              .headers = {{"Content-Type", "application/json"}},
                              .body = encode(request),
                              .timeout = kTimeout,
                              .maximumBytes = kMaximumBytes},
                             stop);
  const OrvexRequestResponse answer = decode(response.body);
  if (!isSuccess(response.status) || !answer.ok)
    throw RequestCenterError(response.status,
                             answer.message.value_or(QStringLiteral("Talep gönderilemedi.")));
  return answer.requestId.value_or(answer.id.value_or(QStringLiteral("Vantrelo Request")));
}

}  // namespace orvex
