#include "lut/LUTApplyBridge.h"

#include "base/FileUrl.h"
#include "lut/CloudLUTPreparation.h"
#include "lut/ManagedLibrary.h"
#include "platform/FolderAccess.h"
#include "platform/SystemLog.h"
#include "platform/Workspace.h"

#include <QCoreApplication>
#include <QFile>
#include <QPointer>
#include <QTimer>

namespace orvex {
namespace {

// A request that was left, and the application to launch for it.
struct Left {
  BridgeRequest request;
  std::optional<QUrl> helper;
};

}  // namespace

LUTApplyBridge::LUTApplyBridge(Environment environment, QObject* parent)
    : QObject(parent), environment_(std::move(environment)) {}

LUTApplyBridge::~LUTApplyBridge() = default;

void LUTApplyBridge::sleepByTimer(std::chrono::milliseconds time, std::function<void()> then) {
  QTimer::singleShot(time, Qt::PreciseTimer, QCoreApplication::instance(), std::move(then));
}

void LUTApplyBridge::apply(const QUrl& source, const QUrl& permittedRoot) {
  if (activePath_) return;
  activePath_ = fileText(source);
  const bool hadResult = std::exchange(lastResult_, std::nullopt).has_value();
  Q_EMIT activePathChanged();
  if (hadResult) Q_EMIT lastResultChanged();

  rootAccess_ = environment_.access.use(permittedRoot);
  background_.run(
      [source, permittedRoot,
       extension = environment_.extensionBundle](const WorkControl& control) {
        const QByteArray library = ManagedLibrary::userPath();
        const QUrl copy =
            CloudLUTPreparation::prepare(source, permittedRoot, fileUrl(library), control.stop);
        return Left{BridgeExchange::leaveRequest(library, copy),
                    BridgeExchange::helperApplication(extension)};
      },
      [this](const std::expected<Left, std::exception_ptr>& left) {
        rootAccess_.reset();
        if (!left) return fail(descriptionOf(left.error()));
        environment_.log.line(QStringLiteral("[Vantrelo Orvex] Bridge request yazıldı: %1")
                                  .arg(QFile::decodeName(left->request.path)));
        if (!left->helper) return fail(BridgeError(BridgeError::Kind::HelperMissing).description());
        launch(*left->helper, left->request.replyPath);
      });
}

void LUTApplyBridge::launch(const QUrl& helper, const QByteArray& replyPath) {
  environment_.workspace.launch(
      helper, [self = QPointer(this), replyPath](const std::expected<void, QString>& launched) {
        if (!self) return;
        if (!launched) return self->fail(launched.error());
        self->poll(replyPath, kPolls);
      });
}

void LUTApplyBridge::poll(const QByteArray& replyPath, int pollsLeft) {
  if (pollsLeft == 0)
    return complete(
        {false, QStringLiteral(
                    "LUT yardımcı motoru cevap vermedi. Bridge request işlendi mi kontrol et.")});
  environment_.sleep(kPollInterval, [self = QPointer(this), replyPath, pollsLeft] {
    if (self) self->look(replyPath, pollsLeft - 1);
  });
}

void LUTApplyBridge::look(const QByteArray& replyPath, int pollsLeft) {
  using Reply = std::optional<BridgeReply>;
  background_.run(
      [replyPath](const WorkControl&) { return BridgeExchange::takeReply(replyPath); },
      [this, replyPath, pollsLeft](const std::expected<Reply, std::exception_ptr>& reply) {
        if (!reply) return fail(descriptionOf(reply.error()));
        if (!*reply) return poll(replyPath, pollsLeft);
        complete(**reply);
      });
}

void LUTApplyBridge::complete(const BridgeReply& reply) {
  // All of it before anybody is told, who may begin the next exchange at once.
  activePath_.reset();
  lastSucceeded_ = reply.ok;
  lastResult_ = reply.message;
  Q_EMIT activePathChanged();
  Q_EMIT lastSucceededChanged();
  Q_EMIT lastResultChanged();
}

void LUTApplyBridge::fail(const QString& description) {
  activePath_.reset();
  Q_EMIT activePathChanged();
  Q_EMIT failed(description);
}

}  // namespace orvex
