#include "platform/hosts/MpvLUT.h"

#include "platform/hosts/MpvTask.h"

#include <chrono>

namespace orvex {
namespace {

// A file that was just opened shows its first frame sooner; one without a picture never does.
constexpr std::chrono::milliseconds kPictureLimit{800};
// The player reads a LUT of 64 MB in about a second.
constexpr std::chrono::seconds kLimit{5};
constexpr std::chrono::milliseconds kLookInterval{20};
constexpr int kLooks = 100;

class LUTTask final : public MpvTask {
 public:
  LUTTask(std::unique_ptr<MpvConnection> connection, QString path, QString name, Done done,
          QObject* parent)
      : MpvTask(std::move(connection), std::move(done), parent, kLimit),
        path_(std::move(path)),
        name_(std::move(name)) {
    // A filter that is added before there is a picture is not tried, and a bad one would then take
    // the picture away.
    QTimer::singleShot(kPictureLimit, this, [this] {
      if (!begun_)
        ask(u"idle-active", [this](const QJsonValue& idle) { failWithoutPicture(idle); });
    });
    QObject::connect(&this->connection(), &MpvConnection::eventReceived, this,
                     [this](const MpvEvent& event) {
                       if (event.name == u"property-change" && event.data.isObject() && !begun_)
                         add();
                     });
    run({QStringLiteral("observe_property"), 1, QStringLiteral("video-params")},
        [](const QJsonValue&) {});
  }

 private:
  void failWithoutPicture(const QJsonValue& idle) {
    if (begun_) return;
    const QString reason =
        idle.toBool() ? QStringLiteral("mpv'de açık video yok. Önce bir video aç.")
                      : QStringLiteral("mpv bir görüntü göstermiyor. Görüntüsü olan bir dosya aç.");
    fail(QStringLiteral("%1 LUT'u uygulanamadı: %2").arg(name_, reason));
  }

  void add() {
    begun_ = true;
    // The count of bytes before the path keeps every character of it from being understood.
    const QString filter = QStringLiteral("@%1:lut3d=file=%%2%%3")
                               .arg(MpvLUT::kLabel)
                               .arg(path_.toUtf8().size())
                               .arg(path_);
    run({QStringLiteral("vf"), QStringLiteral("add"), filter}, [this](const QJsonValue&) {
      ask(u"vf", [this](const QJsonValue& chain) { check(chain); });
    });
  }

  void check(const QJsonValue& chain) {
    bool there = false;
    for (const QJsonValue filter : chain.toArray())
      there = there || (filter[u"label"].toString() == MpvLUT::kLabel &&
                        filter[u"name"].toString() == u"lut3d" && filter[u"enabled"] == true &&
                        filter[u"params"][u"file"] == path_);
    if (!there) return failToShow();
    awaitUse(kLooks);
  }

  // Only a filter that works on the picture has data of its own; the player builds it when it draws
  // the next picture.
  void awaitUse(int looksLeft) {
    if (looksLeft == 0) return failToShow();
    connection().send(
        {QStringLiteral("get_property"), QStringLiteral("vf-metadata/%1").arg(MpvLUT::kLabel)},
        [this, looksLeft](const MpvReply& reply) {
          if (reply.succeeded())
            ask(u"media-title", [this](const QJsonValue& title) { succeed(title); });
          else
            QTimer::singleShot(kLookInterval, this, [this, looksLeft] { awaitUse(looksLeft - 1); });
        });
  }

  void failToShow() {
    fail(QStringLiteral("%1 LUT'u uygulanamadı: mpv filtreyi aldı ama kullanmıyor.").arg(name_));
  }

  void succeed(const QJsonValue& title) {
    finish(QStringLiteral("%1 LUT'u %2 kaydına uygulandı. mpv'de seçim yoktur, LUT tüm kaydı "
                          "etkiler.")
               .arg(name_, title.toString()));
  }

  const QString path_;
  const QString name_;
  bool begun_ = false;
};

}  // namespace

MpvLUT::MpvLUT(const QString& socketPath) : socketPath_(socketPath) {}

void MpvLUT::apply(const QString& path, const QString& name, Done done) {
  auto connection = MpvConnection::open(socketPath_);
  if (!connection) return done(std::unexpected(connection.error()));
  new LUTTask(std::move(*connection), path, name, std::move(done), this);
}

}  // namespace orvex
