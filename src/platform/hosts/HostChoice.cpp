#include "platform/hosts/HostChoice.h"

#include "platform/hosts/BuiltInHost.h"
#include "platform/hosts/MpvConnection.h"
#include "platform/hosts/MpvHostRuntime.h"
#include "platform/hosts/MpvPicture.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace orvex {
namespace {

// Has one host, or none, for as long as it lives.
class FixedHostRuntime final : public HostRuntime {
 public:
  explicit FixedHostRuntime(std::shared_ptr<FCPXHost> host) : host_(std::move(host)) {}

  std::shared_ptr<FCPXHost> hostSingleton() override { return host_; }

 private:
  std::shared_ptr<FCPXHost> host_;
};

std::expected<HostChoice, QString> mpvAt(const QString& path) {
  if (path.isEmpty() || path.contains(QChar::Null))
    return std::unexpected(QStringLiteral(
        "mpv: ardından oyuncunun soket yolu gelir (örneğin mpv:/run/user/1000/mpv.sock)."));
  const QString absolute = QDir::current().absoluteFilePath(path);
  if (const qsizetype size = QFile::encodeName(absolute).size();
      size > MpvConnection::kMaximumPathBytes)
    return std::unexpected(
        QStringLiteral("mpv soketinin yolu çok uzun (%1 bayt, en çok %2): %3. Daha kısa bir yol "
                       "seç.")
            .arg(size)
            .arg(MpvConnection::kMaximumPathBytes)
            .arg(absolute));
  return HostChoice{.kind = HostChoice::Kind::Mpv, .socketPath = absolute};
}

}  // namespace

std::expected<HostChoice, QString> HostChoice::parse(const QString& text) {
  if (text.isEmpty() || text == u"builtin") return HostChoice{};
  if (text == u"none") return HostChoice{.kind = Kind::None};
  if (text == u"mpv") {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return mpvAt(folder + QStringLiteral("/vantrelo-orvex-mpv.sock"));
  }
  if (text.startsWith(u"mpv:")) return mpvAt(text.mid(4));
  if (text.startsWith(u"builtin:") && BuiltInHost::frameRates().contains(text.mid(8)))
    return HostChoice{.frameRate = text.mid(8)};
  return std::unexpected(
      QStringLiteral("\"%1\" diye bir host yok. Yazılabilecekler: builtin, builtin:RATE, mpv, "
                     "mpv:SOCKET, none. RATE: %2.")
          .arg(text, BuiltInHost::frameRates().join(QStringLiteral(", "))));
}

QString HostChoice::text() const {
  switch (kind) {
    case Kind::Mpv:
      return QStringLiteral("mpv:") + socketPath;
    case Kind::None:
      return QStringLiteral("none");
    case Kind::BuiltIn:
      break;
  }
  return QStringLiteral("builtin:") + frameRate;
}

std::unique_ptr<HostRuntime> makeHostRuntime(const HostChoice& choice) {
  switch (choice.kind) {
    case HostChoice::Kind::Mpv:
      return std::make_unique<MpvHostRuntime>(choice.socketPath);
    case HostChoice::Kind::BuiltIn:
      return std::make_unique<FixedHostRuntime>(std::make_shared<BuiltInHost>(choice.frameRate));
    case HostChoice::Kind::None:
      break;
  }
  return std::make_unique<FixedHostRuntime>(nullptr);
}

std::unique_ptr<HostPicture> makeHostPicture(const HostChoice& choice) {
  if (choice.kind != HostChoice::Kind::Mpv) return nullptr;
  return std::make_unique<MpvPicture>(choice.socketPath);
}

}  // namespace orvex
