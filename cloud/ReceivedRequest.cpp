#include "cloud/ReceivedRequest.h"

#include "base/Json.h"

namespace orvex {

ReceivedRequest ReceivedRequest::decode(const QByteArray& json) {
  const JsonReader root(json);
  const JsonReader diagnostics = root[u"diagnostics"];
  ReceivedRequest request{root[u"type"].string(),
                          root[u"title"].string(),
                          root[u"description"].string(),
                          root[u"priority"].string(),
                          root[u"module"].string(),
                          root[u"source"].string(),
                          diagnostics[u"appVersion"].string(),
                          diagnostics[u"extensionVersion"].string(),
                          diagnostics[u"platform"].string(),
                          diagnostics[u"renderer"].string(),
                          diagnostics[u"compName"].string()};
  if (request.title.trimmed().isEmpty())
    throw JsonError(QStringLiteral("Talebin başlığı boş. Bir başlık yaz."));
  return request;
}

}  // namespace orvex
