#include "lut/BridgeExchange.h"

#include "base/Bundle.h"
#include "base/FileError.h"
#include "base/FileUrl.h"
#include "base/NewFile.h"
#include "base/PropertyList.h"
#include "base/SmallFile.h"
#include "lut/ManagedLibrary.h"

#include <QDir>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>

namespace orvex {
namespace {

using Kind = BridgeError::Kind;

QString textOf(Kind kind) {
  switch (kind) {
    case Kind::HelperMissing:
      return QStringLiteral("Panelin yardımcı Vantrelo Orvex uygulaması bulunamadı.");
    case Kind::InvalidResponse:
      return QStringLiteral("LUT yardımcı motoru geçersiz sonuç döndürdü.");
    case Kind::RequestWriteFailed:
      break;
  }
  return QStringLiteral("LUT bridge request dosyası oluşturulamadı.");
}

bool exists(int folder, const QByteArray& path) {
  struct stat status {};
  return ::fstatat(folder, path.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

// What cannot be listed or removed stays.
void sweep(const Directory& requests) {
  try {
    for (const QByteArray& name : requests.names()) {
      try {
        if (ManagedLibrary::isRequestName(name)) requests.remove(name);
      } catch (const FileError&) {
      }
    }
  } catch (const FileError&) {
  }
}

QByteArray encoded(const QByteArray& copy, const QByteArray& reply) {
  const auto list = PropertyList::binary({{QStringLiteral("path"), QString::fromUtf8(copy)},
                                          {QStringLiteral("reply"), QString::fromUtf8(reply)}});
  // Property lists hold texts, not bytes.
  if (!list || !copy.isValidUtf8() || !reply.isValidUtf8())
    throw DescribedError(
        QStringLiteral("LUT'un yolu UTF-8 değil ya da çok uzun (%1). Dosyayı yeniden adlandır ve "
                       "tekrar dene.")
            .arg(QString::fromUtf8(copy)));
  return *list;
}

DescribedError unreadableReply() {
  return DescribedError(
      QStringLiteral("LUT yardımcı motorunun cevabı okunamadı: dosya bozuk ya da çok büyük. "
                     "Tekrar dene."));
}

}  // namespace

BridgeError::BridgeError(Kind kind) : DescribedError(textOf(kind)), kind_(kind) {}

BridgeReply BridgeReply::decode(const QByteArray& bytes) {
  const auto list = PropertyList::parse(bytes);
  if (!list) throw unreadableReply();
  // Compared, never converted: 1 is not true.
  const QVariantMap fields = list->toMap();
  const QVariant ok = fields.value(QStringLiteral("ok"));
  const QVariant message = fields.value(QStringLiteral("message"));
  if (ok.typeId() != QMetaType::Bool || message.typeId() != QMetaType::QString)
    throw BridgeError(Kind::InvalidResponse);
  return {ok.toBool(), message.toString()};
}

BridgeRequest BridgeExchange::leaveRequest(const QByteArray& library, const QUrl& copy) {
  const Directory folder = Directory::make(library);
  const QByteArray reply = folder.path(ManagedLibrary::newReplyName());
  const Directory requests = ManagedLibrary::requests(folder);
  sweep(requests);
  const QByteArray name = ManagedLibrary::newRequestName();
  const QByteArray bytes = encoded(filePath(copy), reply);
  NewFile file(requests);
  file.write(bytes);
  file.moveTo(name);
  if (!exists(requests.descriptor(), name)) throw BridgeError(Kind::RequestWriteFailed);
  return {requests.path(name), reply};
}

std::optional<BridgeReply> BridgeExchange::takeReply(const QByteArray& path) {
  if (!exists(AT_FDCWD, path)) return std::nullopt;
  const qsizetype slash = path.lastIndexOf('/');
  const Directory library = Directory::open(path.first(slash));
  const QByteArray name = path.sliced(slash + 1);
  const auto bytes = [&] {
    // It goes whatever it is.
    struct Removal {
      ~Removal() {
        try {
          library.remove(name);
        } catch (const FileError&) {
        }
      }
      const Directory& library;
      const QByteArray& name;
    } const removal{library, name};
    return readSmallFile(library.file(name), PropertyList::kMaximumBytes);
  }();
  if (!bytes) throw unreadableReply();
  return BridgeReply::decode(*bytes);
}

std::optional<QUrl> BridgeExchange::helperApplication(const QString& extensionBundle) {
  // From the bundle in the application's plug-ins folder, in its contents folder.
  const QString application = QDir::cleanPath(extensionBundle + QStringLiteral("/../../.."));
  if (QFileInfo(application).suffix() != u"app") return std::nullopt;
  const QVariant identifier = Bundle(application).infoValue(QStringLiteral("CFBundleIdentifier"));
  if (identifier != QVariant(QStringLiteral("com.vantrelo.orvex.finalcut"))) return std::nullopt;
  return QUrl::fromLocalFile(application);
}

}  // namespace orvex
