#include "HostCommand.h"

#include "HostConnection.h"
#include "HostRequest.h"
#include "Output.h"
#include "host/Timecode.h"
#include "platform/hosts/MpvHost.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaProperty>

#include <chrono>

namespace orvex {
namespace {

using namespace std::chrono_literals;

// Shorter than a player may take to show a frame: a move that the host gives up must not pass for
// one that ended.
constexpr auto kMoveDeadline = 3s;
static_assert(kMoveDeadline < MpvHost::kSeekDeadline);

void printSnapshot(const HostSnapshot& host, bool json) {
  if (json) {
    QJsonObject fields;
    const QMetaObject& type = HostSnapshot::staticMetaObject;
    for (int i = 0; i < type.propertyCount(); ++i) {
      const QMetaProperty field = type.property(i);
      fields.insert(QLatin1StringView(field.name()),
                    QJsonValue::fromVariant(field.readOnGadget(&host)));
    }
    printJson(QJsonDocument(fields));
    return;
  }
  const auto seconds = [](double value) { return QString::number(value, 'f', 6); };
  printTable({
      {QStringLiteral("Host"), host.hostName},
      {QStringLiteral("Sürüm"), host.hostVersion},
      {QStringLiteral("Bundle"), host.bundleIdentifier},
      {QStringLiteral("Sequence"), host.sequenceName},
      {QStringLiteral("Başlangıç"), orvexTimecodeLike(host.sequenceStartSeconds)},
      {QStringLiteral("Süre"), orvexTimecodeLike(host.sequenceDurationSeconds)},
      {QStringLiteral("Kare süresi"),
       host.frameDurationSeconds > 0 ? seconds(host.frameDurationSeconds) + QStringLiteral(" s")
                                     : QStringLiteral("—")},
      {QStringLiteral("FPS"),
       host.fps > 0 ? QString::number(host.fps, 'f', 3) : QStringLiteral("—")},
      {QStringLiteral("Playhead"),
       QStringLiteral("%1  (%2 s)")
           .arg(orvexTimecodeLike(host.playheadSeconds), seconds(host.playheadSeconds))},
  });
}

// One run of the command: waits for the host, does what is asked, waits until it is done, prints.
class HostSession final : public QObject, private FCPXTimelineObserver {
 public:
  HostSession(const HostChoice& choice, HostRequest request, Finish finish, QObject& owner)
      : QObject(&owner),
        choice_(choice),
        request_(std::move(request)),
        finish_(std::move(finish)),
        host_(choice) {
    deadline_.setSingleShot(true);
    connect(&deadline_, &QTimer::timeout, this, &HostSession::failToMove);
    host_.start([this] { handleHost(); });
  }

  ~HostSession() override {
    if (observed_) observed_->timeline()->removeTimelineObserver(this);
  }

 private:
  // Also when the host went away in the middle: the adapter then says so.
  void handleHost() {
    deadline_.stop();
    if (host_.notice()) return fail();
    perform();
    if (host_.notice() && (request_.verb != HostRequest::Verb::Action || host_.noticeIsError()))
      return fail();
    if (!observed_) return succeed();
    wanted_ = host_.snapshot().playheadSeconds;
    deadline_.start(kMoveDeadline);
  }

  void perform() {
    using Verb = HostRequest::Verb;
    if (request_.verb == Verb::Action)
      return host_.adapter().performTimelineAction(request_.action);
    if (request_.verb == Verb::Status) return;
    before_ = host_.snapshot().playheadSeconds;
    observed_ = host_.runtime().hostSingleton();
    observed_->timeline()->addTimelineObserver(this);
    switch (request_.verb) {
      case Verb::Start:
        return host_.adapter().moveToStart();
      case Verb::End:
        return host_.adapter().moveToEnd();
      case Verb::Seconds:
        return host_.adapter().moveBy(request_.seconds);
      case Verb::Frames:
        return host_.adapter().moveByFrames(request_.frames);
      case Verb::Status:
      case Verb::Action:
        break;
    }
  }

  void playheadTimeChanged() override {
    QMetaObject::invokeMethod(this, &HostSession::settled, Qt::QueuedConnection);
  }
  void activeSequenceChanged() override {}
  void sequenceTimeRangeChanged() override {}

  void settled() {
    if (!finish_) return;
    host_.adapter().refresh(QStringLiteral("command line"));
    const double playhead = host_.snapshot().playheadSeconds;
    if (playhead == before_ && playhead != wanted_)
      failToMove();
    else
      succeed();
  }

  void failToMove() {
    printError(
        QStringLiteral("Host istenen kareye gitmedi. Açık dosyanın sarılabildiğini denetle, "
                       "sonra yeniden dene."));
    end(Failed);
  }

  void fail() {
    printError(*host_.notice());
    if (choice_.kind == HostChoice::Kind::Mpv && !host_.runtime().hostSingleton())
      printError(QStringLiteral("mpv'ye \"%1\" soketinden bağlanılamadı. mpv'yi "
                                "--input-ipc-server=%1 ile başlat ya da ORVEX_HOST'a onun soketini "
                                "yaz.")
                     .arg(choice_.socketPath));
    end(Failed);
  }

  void succeed() {
    if (host_.notice() && !request_.json) printLine(*host_.notice());
    printSnapshot(host_.snapshot(), request_.json);
    end(Done);
  }

  void end(ExitCode code) {
    deadline_.stop();
    host_.stop();
    if (finish_) std::exchange(finish_, nullptr)(code);
  }

  const HostChoice choice_;
  HostRequest request_;
  Finish finish_;
  HostConnection host_;
  // Of a move: the host it is made on, where its playhead was and is to be, in seconds.
  std::shared_ptr<FCPXHost> observed_;
  double before_ = 0;
  double wanted_ = 0;
  QTimer deadline_;
};

void runHost(const QStringList& arguments, QObject& owner, const Finish& finish) {
  const auto refuse = [&finish](const QString& text) {
    printError(text);
    finish(WrongUsage);
  };
  const auto request = HostRequest::parse(arguments);
  if (!request) return refuse(request.error());
  const auto choice = HostChoice::parse(qEnvironmentVariable("ORVEX_HOST"));
  if (!choice) return refuse(QStringLiteral("ORVEX_HOST: ") + choice.error());
  // The companion that a timeline command starts is to find the same host.
  qputenv("ORVEX_HOST", choice->text().toUtf8());
  new HostSession(*choice, *request, finish, owner);
}

}  // namespace

Command hostCommand() {
  return {QStringLiteral("host"), HostRequest::usage(),
          QStringLiteral("hostun durumu; playhead'i taşır, timeline komutu gönderir"), &runHost};
}

}  // namespace orvex
