#include "shell/RequestSubmission.h"

#include "shell/OrvexConfig.h"

namespace orvex {

RequestSubmission::RequestSubmission(RequestCenterClient client) : client_(std::move(client)) {}

void RequestSubmission::send(const QString& title, const QString& detail, const QString& module,
                             const HostSnapshot& host) {
  if (background_.isRunning()) return;
  const RequestDraft written{title.trimmed(), detail.trimmed(), module};
  const FeatureRequest request{
      .title = written.title,
      .description = written.detail,
      .module = module,
      .hostName = host.hostName,
      .hostVersion = host.hostVersion,
      .sequenceName = host.sequenceAvailable ? host.sequenceName : QString(),
      .extensionVersion = OrvexConfig::version(),
  };
  background_.run(
      [client = client_, request](const WorkControl& control) {
        return client.send(request, control.stop);
      },
      [this, written](const std::expected<QString, std::exception_ptr>& id) {
        if (id) {
          // The page may have been left while this was on its way.
          if (draft_.title.trimmed() == written.title && draft_.detail.trimmed() == written.detail)
            dropDraft();
          Q_EMIT sent();
          Q_EMIT toast(QStringLiteral("Talep gönderildi • ") + *id, OrvexToast::Kind::success, 3.2);
        } else {
          Q_EMIT toast(QStringLiteral("İstek Merkezi • ") + descriptionOf(id.error()),
                       OrvexToast::Kind::error, 5.0);
        }
        Q_EMIT sendingChanged(false);
      });
  Q_EMIT sendingChanged(true);
}

void RequestSubmission::keepDraft(const QString& title, const QString& detail,
                                  const QString& module) {
  if (title.trimmed().isEmpty() && detail.trimmed().isEmpty()) return;
  draft_ = {title, detail, module};
  Q_EMIT draftChanged();
}

void RequestSubmission::dropDraft() {
  draft_ = {};
  Q_EMIT draftChanged();
}

}  // namespace orvex
