#pragma once

#include "base/Background.h"
#include "services/ReleaseCenterClient.h"
#include "services/ReleaseState.h"
#include "shell/OrvexToast.h"

#include <QObject>

namespace orvex {

/// Asks for the newest release of the panel and keeps what is known of it. A failure leaves the
/// last known release in place. Main thread only.
class ReleaseCheck final : public QObject {
  Q_OBJECT

 public:
  explicit ReleaseCheck(ReleaseCenterClient client);

  [[nodiscard]] const ReleaseState& state() const noexcept { return state_; }
  /// Does nothing while a check is running. A `silent` one tells its outcome by the state alone.
  void start(bool silent);

 Q_SIGNALS:
  void changed();
  void toast(const QString& message, orvex::OrvexToast::Kind kind, double duration);

 private:
  void succeed(const ReleaseManifest& manifest, bool silent);
  void fail(const QString& description, bool silent);

  const ReleaseCenterClient client_;
  ReleaseState state_;
  Background background_;
};

}  // namespace orvex
