#include "platform/hosts/MpvRetime.h"

#include "platform/TimelineActions.h"
#include "platform/hosts/MpvTask.h"

#include <QJsonObject>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

namespace orvex {
namespace {

using namespace std::chrono_literals;

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

class RetimeTask final : public MpvTask {
 public:
  using MpvTask::MpvTask;

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
      if (!position.isDouble())
        return fail(QStringLiteral("mpv'de açık video yok; önce bir video aç."));
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
  using MpvTask::run;
  void run(const QJsonArray& command, const QString& sentence) {
    run(command, [this, sentence](const QJsonValue&) { finish(sentence); });
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
};

}  // namespace

MpvRetime::MpvRetime(const QString& socketPath) : socketPath_(socketPath) {}

void MpvRetime::perform(const QString& action, Done done) {
  const auto command = action == kToggleRetime  ? &RetimeTask::toggleRetime
                       : action == kBladeSpeed  ? &RetimeTask::bladeSpeed
                       : action == kNormalSpeed ? &RetimeTask::normalSpeed
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
  auto* task = new RetimeTask(std::move(*connection), std::move(done), this);
  (task->*command)();
}

}  // namespace orvex
