#pragma once

#include "base/Background.h"
#include "lut/BridgeExchange.h"

#include <QObject>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace orvex {

class FolderAccess;
class SystemLog;
class Workspace;

/// Hands a LUT to the helper application and waits for its answer: it prepares the managed copy,
/// leaves a request beside it, launches the helper and looks for the reply. One exchange at a time.
/// Main thread only.
class LUTApplyBridge final : public QObject {
  Q_OBJECT
  /// Empty while nothing is applied.
  Q_PROPERTY(QString activePath READ activePathOrEmpty NOTIFY activePathChanged FINAL)
  /// Empty until an exchange has completed.
  Q_PROPERTY(QString lastResult READ lastResultOrEmpty NOTIFY lastResultChanged FINAL)
  Q_PROPERTY(bool lastSucceeded READ lastSucceeded NOTIFY lastSucceededChanged FINAL)

 public:
  using BridgeError = orvex::BridgeError;

  /// Calls `then` on the main thread when the time has passed.
  using Sleep = std::function<void(std::chrono::milliseconds, std::function<void()> then)>;

  /// What the bridge works with; all of it outlives the bridge.
  struct Environment {
    Workspace& workspace;
    FolderAccess& access;
    SystemLog& log;
    /// The bundle of the extension, which the helper contains; an absolute path.
    QString extensionBundle;
    /// By a monotonic clock.
    Sleep sleep = sleepByTimer;
  };

  /// How often the reply is looked for, and how many times.
  static constexpr std::chrono::milliseconds kPollInterval{200};
  static constexpr int kPolls = 150;

  explicit LUTApplyBridge(Environment environment, QObject* parent = nullptr);
  ~LUTApplyBridge() override;

  /// Applies the LUT file `source`, which has to lie inside `permittedRoot`, without waiting. Ends
  /// with a new `lastResult` or with `failed`. While another is applied this does nothing.
  Q_INVOKABLE void apply(const QUrl& source, const QUrl& permittedRoot);

  /// The path of the LUT that is being applied.
  [[nodiscard]] const std::optional<QString>& activePath() const noexcept { return activePath_; }
  /// What the helper said, or that it said nothing, at the end of the last exchange. Nothing while
  /// one runs or after one that failed.
  [[nodiscard]] const std::optional<QString>& lastResult() const noexcept { return lastResult_; }
  /// Whether the helper applied the LUT in the last exchange that was completed.
  [[nodiscard]] bool lastSucceeded() const noexcept { return lastSucceeded_; }

 Q_SIGNALS:
  void activePathChanged();
  void lastResultChanged();
  void lastSucceededChanged();
  /// The exchange could not be completed; `description` is in Turkish. `activePath` is clear by
  /// then.
  void failed(const QString& description);

 private:
  static void sleepByTimer(std::chrono::milliseconds time, std::function<void()> then);

  void launch(const QUrl& helper, const QByteArray& replyPath);
  void poll(const QByteArray& replyPath, int pollsLeft);
  void look(const QByteArray& replyPath, int pollsLeft);
  void complete(const BridgeReply& reply);
  void fail(const QString& description);
  [[nodiscard]] QString activePathOrEmpty() const { return activePath_.value_or(QString()); }
  [[nodiscard]] QString lastResultOrEmpty() const { return lastResult_.value_or(QString()); }

  const Environment environment_;
  std::optional<QString> activePath_;
  std::optional<QString> lastResult_;
  bool lastSucceeded_ = false;
  /// Holds the permitted root open while the LUT is prepared.
  std::shared_ptr<void> rootAccess_;
  // The user asked for it and waits.
  Background background_{Background::Priority::Equal};
};

}  // namespace orvex
