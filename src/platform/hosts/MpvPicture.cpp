#include "platform/hosts/MpvPicture.h"

#include "base/SmallFile.h"
#include "platform/hosts/MpvConnection.h"
#include "platform/hosts/MpvLUT.h"

#include <QFile>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <fcntl.h>

namespace orvex {
namespace {

using namespace std::chrono_literals;

// A player that decodes a large frame on a slow machine is done long before.
constexpr auto kDeadline = 4s;
constexpr qsizetype kMaximumBytes = qsizetype{32} * 1024 * 1024;

bool showsLUT(const QJsonValue& filters) {
  const QJsonArray list = filters.toArray();
  return std::ranges::any_of(list, [](const QJsonValue& entry) {
    const QJsonObject filter = entry.toObject();
    return filter.value(u"label").toString() == MpvLUT::kLabel &&
           filter.value(u"enabled").toBool(true);
  });
}

}  // namespace

// One picture being taken.
class MpvPicture::Shot final : public QObject {
 public:
  Shot(const QString& socketPath, std::shared_ptr<Kept> kept, Taken taken)
      : kept_(std::move(kept)), taken_(std::move(taken)) {
    // Also what ends it when there is no connection: never from within the call.
    deadline_.setSingleShot(true);
    connect(&deadline_, &QTimer::timeout, this, [this] { finish(std::nullopt); });
    deadline_.start(kDeadline);
    auto connection = MpvConnection::open(socketPath);
    if (!connection || !folder_.isValid()) {
      deadline_.start(0ms);
      return;
    }
    connection_ = std::move(*connection);
    connect(connection_.get(), &MpvConnection::closed, this, [this] { finish(std::nullopt); });
    connection_->send({QStringLiteral("get_property"), QStringLiteral("path")},
                      [this](const MpvReply& path) { askForFilters(path.data.toString()); });
  }

 private:
  void askForFilters(const QString& file) {
    connection_->send({QStringLiteral("get_property"), QStringLiteral("vf")},
                      [this, file](const MpvReply& filters) {
                        if (!showsLUT(filters.data))
                          shoot(file);
                        else if (kept_->file == file)
                          finish(kept_->picture);
                        else
                          finish(std::nullopt);
                      });
  }

  // As a JPEG, which the player encodes many times faster than a PNG of a large frame.
  void shoot(const QString& file) {
    const QString path = folder_.filePath(QStringLiteral("frame.jpg"));
    connection_->send({QStringLiteral("screenshot-to-file"), path, QStringLiteral("video")},
                      [this, file, path](const MpvReply& reply) {
                        std::optional<QByteArray> picture;
                        if (reply.succeeded())
                          picture = readSmallFile(AT_FDCWD, QFile::encodeName(path), kMaximumBytes);
                        if (picture) *kept_ = {file, *picture};
                        finish(picture);
                      });
  }

  void finish(const std::optional<QByteArray>& picture) {
    deadline_.stop();
    // The player need not go on telling of itself; later, as this may be a call of the connection.
    if (connection_) {
      connection_->close();
      connection_.release()->deleteLater();
    }
    if (const auto taken = std::exchange(taken_, nullptr)) taken(picture);
  }

  std::shared_ptr<Kept> kept_;
  Taken taken_;
  QTemporaryDir folder_;
  std::unique_ptr<MpvConnection> connection_;
  QTimer deadline_;
};

MpvPicture::MpvPicture(const QString& socketPath)
    : socketPath_(socketPath), kept_(std::make_shared<Kept>()) {}

MpvPicture::~MpvPicture() = default;

void MpvPicture::take(Taken taken) {
  shot_ = std::make_unique<Shot>(socketPath_, kept_, std::move(taken));
}

}  // namespace orvex
