#include "lut/ManagedLibrary.h"

#include "base/FileError.h"
#include "base/FileName.h"

#include <QFile>
#include <QStandardPaths>
#include <QUuid>

#include <cerrno>
#include <sys/stat.h>

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
  const QByteArray applicationSupport =
      QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
  return Directory::make(applicationSupport).path("Vantrelo Orvex/FinalCut/Managed LUTs");
}

Directory ManagedLibrary::requests(const Directory& library) {
  Directory requests = library.folderOrNew("Bridge Requests");
  if (::fchmod(requests.descriptor(), 0700) != 0)
    throw FileError(QStringLiteral("kullanıcıya ayrılamadı"), requests.path(), errno);
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
