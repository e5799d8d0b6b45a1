#include "companion/LUTRequests.h"

#include "base/FileError.h"
#include "base/NewFile.h"
#include "base/PropertyList.h"
#include "base/SmallFile.h"
#include "lut/LUTApplyBridge.h"
#include "lut/ManagedLibrary.h"

#include <QVariant>

#include <chrono>
#include <ctime>
#include <sys/stat.h>
#include <unistd.h>

namespace orvex {
namespace {

constexpr qsizetype kMaximumMessage = 4096;

// Nobody looks for the reply any more.
bool isAbandoned(const FileDescriptor& file) {
  using namespace std::chrono;
  struct stat status {};
  if (::fstat(file.get(), &status) != 0) return false;
  const auto age = seconds(std::time(nullptr) - status.st_mtim.tv_sec);
  return age > LUTApplyBridge::kPollInterval * LUTApplyBridge::kPolls;
}

std::unexpected<QString> refused(const QByteArray& name, const QString& reason) {
  return std::unexpected(
      QStringLiteral("%1 isteği reddedildi: %2").arg(QString::fromUtf8(name), reason));
}

}  // namespace

LUTRequests::LUTRequests(const Directory& library)
    : library_(library), requests_(ManagedLibrary::requests(library)) {}

std::optional<std::expected<PendingLUT, QString>> LUTRequests::take() const {
  for (const QByteArray& name : requests_.names()) {
    if (!ManagedLibrary::isRequestName(name)) continue;
    std::optional<QByteArray> bytes;
    bool abandoned = false;
    try {
      const FileDescriptor file = requests_.file(name);
      abandoned = isAbandoned(file);
      bytes = readSmallFile(file, PropertyList::kMaximumBytes);
    } catch (const FileError&) {
      // A link, a FIFO, a file that may not be read.
    }
    // Only one process succeeds in this, and a folder is left alone.
    if (::unlinkat(requests_.descriptor(), name.constData(), 0) != 0) continue;
    if (abandoned) return refused(name, QStringLiteral("süresi geçmiş."));
    if (!bytes) return refused(name, QStringLiteral("okunabilen bir dosya değil."));
    const auto request = decode(*bytes);
    if (!request) return refused(name, request.error());
    return request;
  }
  return std::nullopt;
}

std::expected<PendingLUT, QString> LUTRequests::decode(const QByteArray& bytes) const {
  const auto list = PropertyList::parse(bytes);
  if (!list) return std::unexpected(QStringLiteral("property list değil ya da bozuk."));
  const QVariantMap fields = list->toMap();
  const QVariant path = fields.value(QStringLiteral("path"));
  const QVariant reply = fields.value(QStringLiteral("reply"));
  if (path.typeId() != QMetaType::QString || reply.typeId() != QMetaType::QString)
    return std::unexpected(QStringLiteral("\"path\" ya da \"reply\" eksik."));
  const QByteArray replyPath = reply.toString().toUtf8();
  const QByteArray replyName = replyPath.sliced(replyPath.lastIndexOf('/') + 1);
  if (replyPath != library_.path(replyName) || !ManagedLibrary::isReplyName(replyName))
    return std::unexpected(QStringLiteral("cevabı LUT kitaplığında bir yere yazılmıyor."));
  return PendingLUT{path.toString().toUtf8(), replyName};
}

void LUTRequests::reply(const PendingLUT& request,
                        const std::expected<QString, QString>& outcome) const {
  const auto encoded = [&outcome](const QString& message) {
    return PropertyList::binary(
        {{QStringLiteral("ok"), outcome.has_value()}, {QStringLiteral("message"), message}});
  };
  // A title from elsewhere can go on for ever, and hold what no property list can.
  const auto whole = encoded((outcome ? *outcome : outcome.error()).left(kMaximumMessage));
  NewFile file(library_);
  file.write(whole ? *whole
                   : *encoded(outcome ? QStringLiteral("LUT uygulandı.")
                                      : QStringLiteral("LUT uygulanamadı.")));
  file.moveTo(request.replyName);
}

}  // namespace orvex
