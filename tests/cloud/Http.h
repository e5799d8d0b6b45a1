#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>

#include <curl/curl.h>
#include <memory>

namespace orvex {

struct HttpExchange {
  CURLcode result = CURLE_OK;
  long status = 0;
  /// Names in lower case.
  QMap<QByteArray, QByteArray> headers{};
  QByteArray body{};
};

struct HttpCall {
  QByteArray method = "GET";
  QByteArray address{};
  QList<QByteArray> headers{};
  QByteArray body{};
  QByteArray caFile{};
  /// Bytes are counted into this instead of being kept.
  qint64* counted = nullptr;
};

/// One exchange, the path sent as it is written.
inline HttpExchange exchange(const HttpCall& call) {
  const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(),
                                                                 &curl_easy_cleanup);
  HttpExchange ended;
  struct Target {
    HttpExchange& ended;
    qint64* counted;
  } target{ended, call.counted};
  curl_slist* lines = nullptr;
  for (const QByteArray& line : call.headers) lines = curl_slist_append(lines, line.constData());
  const auto set = [&curl](CURLoption option, auto value) {
    curl_easy_setopt(curl.get(), option, value);
  };
  set(CURLOPT_URL, call.address.constData());
  set(CURLOPT_PATH_AS_IS, 1L);
  if (!call.caFile.isEmpty()) set(CURLOPT_CAINFO, call.caFile.constData());
  set(CURLOPT_HTTPHEADER, lines);
  set(CURLOPT_CUSTOMREQUEST, call.method.constData());
  if (call.method == "HEAD") set(CURLOPT_NOBODY, 1L);
  if (!call.body.isEmpty()) {
    set(CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t{call.body.size()});
    set(CURLOPT_POSTFIELDS, call.body.constData());
  }
  set(CURLOPT_HEADERDATA, &ended);
  set(
      CURLOPT_HEADERFUNCTION, +[](char* data, std::size_t, std::size_t size, void* to) {
        const QByteArray line = QByteArray(data, static_cast<qsizetype>(size)).trimmed();
        if (const qsizetype colon = line.indexOf(':'); colon > 0)
          static_cast<HttpExchange*>(to)->headers[line.first(colon).toLower()] =
              line.sliced(colon + 1).trimmed();
        return size;
      });
  set(CURLOPT_WRITEDATA, &target);
  set(
      CURLOPT_WRITEFUNCTION, +[](char* data, std::size_t, std::size_t size, void* to) {
        auto* taken = static_cast<Target*>(to);
        if (taken->counted != nullptr)
          *taken->counted += static_cast<qint64>(size);
        else
          taken->ended.body.append(data, static_cast<qsizetype>(size));
        return size;
      });
  ended.result = curl_easy_perform(curl.get());
  curl_easy_getinfo(curl.get(), CURLINFO_RESPONSE_CODE, &ended.status);
  curl_slist_free_all(lines);
  return ended;
}

}  // namespace orvex
