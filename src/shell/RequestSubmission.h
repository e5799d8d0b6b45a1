#pragma once

#include "base/Background.h"
#include "host/HostSnapshot.h"
#include "services/RequestCenterClient.h"
#include "shell/OrvexToast.h"

#include <QObject>

namespace orvex {

/// What was written into the request page.
struct RequestDraft {
  Q_GADGET
  Q_PROPERTY(QString title MEMBER title)
  Q_PROPERTY(QString detail MEMBER detail)
  Q_PROPERTY(QString module MEMBER module)

 public:
  QString title;
  QString detail;
  QString module;

  friend bool operator==(const RequestDraft&, const RequestDraft&) = default;
};

/// The request that was written, without the blanks around its texts, with what is known of `host`.
[[nodiscard]] FeatureRequest featureRequest(const RequestDraft& written, const HostSnapshot& host);

/// Sends a user's request, and goes on when its page is left. Keeps what the page had not sent, so
/// that the user can take it up again. Main thread only.
class RequestSubmission final : public QObject {
  Q_OBJECT
  Q_PROPERTY(QList<QString> modules READ modules CONSTANT FINAL)
  Q_PROPERTY(bool hasDraft READ hasDraft NOTIFY draftsChanged FINAL)
  Q_PROPERTY(orvex::RequestDraft draft READ draft NOTIFY draftsChanged FINAL)

 public:
  explicit RequestSubmission(RequestCenterClient client);

  /// What a request can be about. The first is the one that counts where nothing was chosen.
  [[nodiscard]] static const QStringList& modules();

  /// Does nothing while a request is on its way.
  Q_INVOKABLE void send(const QString& title, const QString& detail, const QString& module,
                        const orvex::HostSnapshot& host);

  [[nodiscard]] bool hasDraft() const noexcept { return !drafts_.isEmpty(); }
  /// The newest one.
  [[nodiscard]] RequestDraft draft() const { return drafts_.value(drafts_.size() - 1); }
  /// Blank texts are not kept.
  Q_INVOKABLE void keepDraft(const QString& title, const QString& detail, const QString& module);
  /// The newest one, which is no longer kept; the one before it is the newest then.
  Q_INVOKABLE orvex::RequestDraft takeDraft();

 Q_SIGNALS:
  void sendingChanged(bool sending);
  /// The service took the request.
  void sent();
  void toast(const QString& message, orvex::OrvexToast::Kind kind, double duration);
  void draftsChanged();

 private:
  const RequestCenterClient client_;
  // Oldest first.
  QList<RequestDraft> drafts_;
  Background background_;
};

}  // namespace orvex
