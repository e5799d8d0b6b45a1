#include "lut/ManagedLibrary.h"

#include "base/FileName.h"
#include "base/UserFolders.h"

#include <QFile>
#include <QUuid>

namespace orvex {
namespace {

constexpr QByteArrayView kRequest("request-");
constexpr QByteArrayView kReply("apply-result-");
constexpr QByteArrayView kExtension("plist");

QByteArray newUuid() {
  return QUuid::createUuid().toByteArray(QUuid::WithoutBraces).toUpper();
}

}  // namespace

QByteArray ManagedLibrary::userPath() {
  return Directory::make(QFile::encodeName(userDataFolder())).path("Managed LUTs");
}

Directory ManagedLibrary::requests(const Directory& library) {
  Directory requests = library.folderOrNew("Bridge Requests");
  requests.keepPrivate();
  return requests;
}

bool ManagedLibrary::isRequestName(QByteArrayView name) {
  return name.startsWith(kRequest) && FileName(name).hasExtension(kExtension);
}

QByteArray ManagedLibrary::newRequestName() {
  return kRequest.toByteArray() + newUuid() + ".plist";
}

QByteArray ManagedLibrary::newReplyName() {
  return kReply.toByteArray() + newUuid() + ".plist";
}

bool ManagedLibrary::isReplyName(QByteArrayView name) {
  const FileName parts(name);
  if (!parts.stem.startsWith(kReply) || parts.extension != kExtension) return false;
  const QByteArray text = parts.stem.sliced(kReply.size()).toByteArray();
  const QUuid uuid = QUuid::fromString(QString::fromLatin1(text));
  return !uuid.isNull() && uuid.toByteArray(QUuid::WithoutBraces).toUpper() == text.toUpper();
}

}  // namespace orvex
