#include "services/ReleaseManifest.h"

#include "base/Json.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace orvex {

ReleaseManifest ReleaseManifest::decode(const QByteArray& json) {
  const JsonReader root(json);
  return {.schemaVersion = root.optional(u"schemaVersion", &JsonReader::integer),
          .productId = root[u"productId"].string(),
          .platform = root.optional(u"platform", &JsonReader::string),
          .channel = root.optional(u"channel", &JsonReader::string),
          .version = root[u"version"].string(),
          .build = root.optional(u"build", &JsonReader::integer),
          .minimumFinalCutVersion = root.optional(u"minimumFinalCutVersion", &JsonReader::string),
          .minimumMacOSVersion = root.optional(u"minimumMacOSVersion", &JsonReader::string),
          .downloadURL = root[u"downloadURL"].string(),
          .notesURL = root.optional(u"notesURL", &JsonReader::string),
          .sha256 = root.optional(u"sha256", &JsonReader::string),
          .mandatory = root.optional(u"mandatory", &JsonReader::boolean),
          .publishedAt = root.optional(u"publishedAt", &JsonReader::string)};
}

QByteArray ReleaseManifest::encode() const {
  QJsonObject root{{QStringLiteral("productId"), productId},
                   {QStringLiteral("version"), version},
                   {QStringLiteral("downloadURL"), downloadURL}};
  insert(root, u"schemaVersion", schemaVersion);
  insert(root, u"platform", platform);
  insert(root, u"channel", channel);
  insert(root, u"build", build);
  insert(root, u"minimumFinalCutVersion", minimumFinalCutVersion);
  insert(root, u"minimumMacOSVersion", minimumMacOSVersion);
  insert(root, u"notesURL", notesURL);
  insert(root, u"sha256", sha256);
  insert(root, u"mandatory", mandatory);
  insert(root, u"publishedAt", publishedAt);
  return QJsonDocument(root).toJson(QJsonDocument::Compact);
}

}  // namespace orvex
