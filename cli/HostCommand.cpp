#include "HostCommand.h"

#include "HostRequest.h"
#include "Output.h"
#include "host/FinalCutHostAdapter.h"
#include "host/HostState.h"
#include "host/Timecode.h"
#include "platform/HostRuntime.h"
#include "platform/Platform.h"
#include "platform/SystemLog.h"
#include "platform/hosts/HostChoice.h"
#include "platform/hosts/MpvHost.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaProperty>
#include <QTimer>

#include <chrono>
#include <optional>

namespace orvex {
namespace {

using namespace std::chrono_literals;

// Longer than a player may take to report itself, shorter than it may take to show a frame: a move
// that the host gives up must not pass for one that ended.
constexpr auto kConnectDeadline = MpvHost::kReportDeadline + 500ms;
constexpr auto kMoveDeadline = 3s;
static_assert(kMoveDeadline < MpvHost::kSeekDeadline);

// Keeps what the adapter reports, for printing.
class ReportedState final : public HostState {
 public:
  [[nodiscard]] const HostSnapshot& host() const override { return host_; }
  void setHost(const HostSnapshot& snapshot) override { host_ = snapshot; }
  void showHostNotice(const QString& message, Notice kind) override {
    notice = message;
    noticeKind = kind;
  }

  std::optional<QString> notice;
  Notice noticeKind = Notice::Info;

 private:
  HostSnapshot host_;
};

// What the panel writes to the system's log would be noise around this program's output.
class NoLog final : public SystemLog {
 public:
  void line(const QString&) override {}
};

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
        request_(std::move(request)),
        finish_(std::move(finish)),
        runtime_(makeHostRuntime(choice)),
        platform_(makePlatform()),
        adapter_(state_, *runtime_, platform_->workspace(), log_) {
    deadline_.setSingleShot(true);
    connect(&deadline_, &QTimer::timeout, this, &HostSession::handleDeadline);
    connect(runtime_.get(), &HostRuntime::hostSingletonChanged, this, &HostSession::connectHost);
    // Only a player may still be on its way.
    if (choice.kind == HostChoice::Kind::Mpv && !runtime_->hostSingleton())
      deadline_.start(kConnectDeadline);
    else
      connectHost();
  }

  ~HostSession() override {
    if (observed_) observed_->timeline()->removeTimelineObserver(this);
  }

 private:
  // Also when the host went away in the middle: the adapter then says so.
  void connectHost() {
    deadline_.stop();
    adapter_.connect();
    if (state_->notice) return fail();
    perform();
    if (state_->notice && (request_.verb != HostRequest::Verb::Action ||
                           state_->noticeKind == HostState::Notice::Error))
      return fail();
    if (!observed_) return succeed();
    wanted_ = state_->host().playheadSeconds;
    deadline_.start(kMoveDeadline);
  }

  void perform() {
    using Verb = HostRequest::Verb;
    if (request_.verb == Verb::Action) return adapter_.performTimelineAction(request_.action);
    if (request_.verb == Verb::Status) return;
    before_ = state_->host().playheadSeconds;
    observed_ = runtime_->hostSingleton();
    observed_->timeline()->addTimelineObserver(this);
    switch (request_.verb) {
      case Verb::Start:
        return adapter_.moveToStart();
      case Verb::End:
        return adapter_.moveToEnd();
      case Verb::Seconds:
        return adapter_.moveBy(request_.seconds);
      case Verb::Frames:
        return adapter_.moveByFrames(request_.frames);
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
    adapter_.refresh(QStringLiteral("command line"));
    const double playhead = state_->host().playheadSeconds;
    if (playhead == before_ && playhead != wanted_)
      failToMove();
    else
      succeed();
  }

  void handleDeadline() {
    // Without a host, the adapter says so; with one, the move was not confirmed.
    if (observed_)
      failToMove();
    else
      connectHost();
  }

  void failToMove() {
    printError(
        QStringLiteral("Host istenen kareye gitmedi. Açık dosyanın sarılabildiğini denetle, "
                       "sonra yeniden dene."));
    end(Failed);
  }

  void fail() {
    printError(*state_->notice);
    end(Failed);
  }

  void succeed() {
    if (state_->notice && !request_.json) printLine(*state_->notice);
    printSnapshot(state_->host(), request_.json);
    end(Done);
  }

  void end(ExitCode code) {
    deadline_.stop();
    runtime_->disconnect(this);
    if (finish_) std::exchange(finish_, nullptr)(code);
  }

  HostRequest request_;
  Finish finish_;
  NoLog log_;
  std::shared_ptr<ReportedState> state_ = std::make_shared<ReportedState>();
  std::unique_ptr<HostRuntime> runtime_;
  std::unique_ptr<Platform> platform_;
  FinalCutHostAdapter adapter_;
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
