#include "platform/hosts/MpvRetime.h"

#include "platform/hosts/MpvConnection.h"

#include <QJsonObject>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

namespace orvex {
namespace {

using namespace std::chrono_literals;

constexpr auto kDeadline = 2s;
constexpr auto kMessageTime = 4s;

QString percentOf(double speed) {
  return QStringLiteral("%") + QString::number(speed * 100, 'g', 6);
}

QJsonObject speedPointAt(double seconds) {
  return {{QStringLiteral("title"), QStringLiteral("Speed Point")},
          {QStringLiteral("time"), seconds}};
}

double timeOf(const QJsonValue& chapter) {
  return chapter.toObject().value(u"time").toDouble();
}

// One command on its own connection; goes when it is done.
class Performance final : public QObject {
 public:
  Performance(std::unique_ptr<MpvConnection> connection, MpvRetime::Done done, QObject* parent)
      : QObject(parent), connection_(std::move(connection)), done_(std::move(done)) {
    connect(connection_.get(), &MpvConnection::closed, this, [this] {
      finish(std::unexpected(QStringLiteral("mpv bağlantıyı kapattı; komut tamamlanmadı.")));
    });
    deadline_.setSingleShot(true);
    connect(&deadline_, &QTimer::timeout, this, [this] {
      finish(std::unexpected(QStringLiteral("mpv süresi içinde yanıt vermedi.")));
    });
    deadline_.start(kDeadline);
  }

  void toggleRetime() {
    ask(u"speed", [this](const QJsonValue& speed) {
      const QString text =
          QStringLiteral("mpv'de Retime Editor ve klip seçimi yoktur; geçerli hız %1.")
              .arg(percentOf(speed.toDouble(1)));
      const auto shown = static_cast<int>(std::chrono::milliseconds(kMessageTime).count());
      run({QStringLiteral("show-text"), text, shown}, text);
    });
  }

  void bladeSpeed() {
    ask(u"time-pos", [this](const QJsonValue& position) {
      if (!position.isDouble()) {
        finish(std::unexpected(QStringLiteral("mpv'de açık video yok; önce bir video aç.")));
        return;
      }
      ask(u"chapter-list", [this, seconds = position.toDouble()](const QJsonValue& chapters) {
        addSpeedPoint(chapters.toArray(), seconds);
      });
    });
  }

  void normalSpeed() {
    run({QStringLiteral("set_property"), QStringLiteral("speed"), 1},
        QStringLiteral("Oynatma hızı %100 yapıldı; mpv'de klip seçimi yoktur, hız tüm yayın için "
                       "geçerlidir."));
  }

 private:
  void finish(std::expected<QString, QString> outcome) {
    if (!done_) return;
    deadline_.stop();
    deleteLater();
    std::exchange(done_, nullptr)(std::move(outcome));
  }

  // The property's value, null while the player has none.
  void ask(QStringView property, std::function<void(const QJsonValue&)> then) {
    connection_->send({QStringLiteral("get_property"), property.toString()},
                      [this, then = std::move(then)](const MpvReply& reply) {
                        if (done_) then(reply.data);
                      });
  }

  void run(const QJsonArray& command, const QString& sentence) {
    connection_->send(command, [this, sentence](const MpvReply& reply) {
      if (reply.succeeded())
        finish(sentence);
      else
        finish(
            std::unexpected(QStringLiteral("mpv komutu yerine getiremedi (%1).").arg(reply.error)));
    });
  }

  void addSpeedPoint(const QJsonArray& chapters, double seconds) {
    const QString at = QString::number(seconds, 'f', 3);
    std::vector<QJsonValue> points(chapters.begin(), chapters.end());
    // The player stores a chapter's time as it was given, so the same frame gives the same time.
    if (std::ranges::any_of(points, [&](const QJsonValue& point) {
          return point == QJsonValue(speedPointAt(seconds));
        })) {
      finish(QStringLiteral("%1 saniyede zaten bir Speed Point var.").arg(at));
      return;
    }
    points.insert(std::ranges::upper_bound(points, seconds, {}, timeOf), speedPointAt(seconds));
    QJsonArray list;
    for (const QJsonValue& point : points) list.append(point);
    run({QStringLiteral("set_property"), QStringLiteral("chapter-list"), list},
        QStringLiteral("%1 saniyeye Speed Point eklendi.").arg(at));
  }

  std::unique_ptr<MpvConnection> connection_;
  MpvRetime::Done done_;
  QTimer deadline_;
};

}  // namespace

MpvRetime::MpvRetime(const QString& socketPath) : socketPath_(socketPath) {}

void MpvRetime::perform(const QString& action, Done done) {
  const auto command = action == u"toggle-retime"  ? &Performance::toggleRetime
                       : action == u"blade-speed"  ? &Performance::bladeSpeed
                       : action == u"normal-speed" ? &Performance::normalSpeed
                                                   : nullptr;
  if (command == nullptr) {
    done(std::unexpected(QStringLiteral("Geçersiz timeline komutu.")));
    return;
  }
  auto connection = MpvConnection::open(socketPath_);
  if (!connection) {
    done(std::unexpected(connection.error()));
    return;
  }
  auto* performance = new Performance(std::move(*connection), std::move(done), this);
  (performance->*command)();
}

}  // namespace orvex
