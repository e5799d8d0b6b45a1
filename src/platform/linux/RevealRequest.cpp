#include "platform/linux/RevealRequest.h"

#include "base/FileUrl.h"
#include "platform/linux/SessionBus.h"

#include <QDBusMessage>

#include <chrono>
#include <sys/stat.h>

namespace orvex {
namespace {

using namespace std::chrono_literals;

// A file manager that has to be started first takes a few seconds.
constexpr std::chrono::milliseconds kLimit = 10s;

bool exists(const QByteArray& path) {
  struct stat status {};
  return !path.isEmpty() && ::lstat(path.constData(), &status) == 0;
}

}  // namespace

RevealRequest::RevealRequest(SessionBus& bus, const QUrl& file, OpenFolder openFolder,
                             Workspace::Revealed revealed, QObject* parent)
    : QObject(parent),
      bus_(bus),
      file_(file),
      openFolder_(std::move(openFolder)),
      revealed_(std::move(revealed)) {
  // File managers take any path and show something. A disk that hangs must not hang the panel.
  background_.run([path = filePath(file_)](const WorkControl&) { return exists(path); },
                  [this](const std::expected<bool, std::exception_ptr>& found) {
                    if (found.value_or(false)) return askFileManager();
                    end(std::unexpected(
                        QStringLiteral("%1 artık yerinde değil. Listeyi yenile.")
                            .arg(file_.isLocalFile() ? fileText(file_) : file_.toDisplayString())));
                  });
}

void RevealRequest::askFileManager() {
  QDBusMessage call = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.FileManager1"),
      QStringLiteral("/org/freedesktop/FileManager1"),
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
  call.setArguments({QStringList{QString::fromLatin1(file_.toEncoded())}, QString()});
  bus_.ask(call, kLimit, *this, [this](const QDBusMessage& reply) { answered(reply); });
}

void RevealRequest::answered(const QDBusMessage& reply) {
  if (reply.type() == QDBusMessage::ReplyMessage) return end({});
  const QByteArray path = filePath(file_);
  const QByteArray folder = path.first(std::max<qsizetype>(path.lastIndexOf('/'), 1));
  if (openFolder_(fileUrl(folder))) return end({});
  end(std::unexpected(
      QStringLiteral("%1 gösterilemedi: bir dosya yöneticisi bulunamadı. Bir dosya yöneticisi kur "
                     "ya da klasörü kendin aç.")
          .arg(fileText(file_))));
}

void RevealRequest::end(const std::expected<void, QString>& result) {
  deleteLater();
  // The callback may delete this through its owner.
  std::exchange(revealed_, nullptr)(result);
}

}  // namespace orvex
