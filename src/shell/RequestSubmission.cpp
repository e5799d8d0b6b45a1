#include "shell/RequestSubmission.h"

#include "shell/OrvexConfig.h"

namespace orvex {

FeatureRequest featureRequest(const RequestDraft& written, const HostSnapshot& host) {
  return {.title = written.title.trimmed(),
          .description = written.detail.trimmed(),
          .module = written.module,
          .hostName = host.hostName,
          .hostVersion = host.hostVersion,
          .sequenceName = host.sequenceAvailable ? host.sequenceName : QString(),
          .extensionVersion = OrvexConfig::version()};
}

RequestSubmission::RequestSubmission(RequestCenterClient client) : client_(std::move(client)) {}

const QStringList& RequestSubmission::modules() {
  static const QStringList values{QStringLiteral("final-cut"), QStringLiteral("timeline"),
                                  QStringLiteral("motion"),    QStringLiteral("audio"),
                                  QStringLiteral("color"),     QStringLiteral("fxplug"),
                                  QStringLiteral("release")};
  return values;
}

void RequestSubmission::send(const QString& title, const QString& detail, const QString& module,
                             const HostSnapshot& host) {
  if (background_.isRunning()) return;
  const FeatureRequest request = featureRequest({title, detail, module}, host);
  background_.run(
      [client = client_, request](const WorkControl& control) {
        return client.send(request, control.stop);
      },
      [this, title = request.title,
       detail = request.description](const std::expected<QString, std::exception_ptr>& id) {
        if (id) {
          // The page may have been left while this was on its way.
          drafts_.removeIf([&](const RequestDraft& draft) {
            return draft.title.trimmed() == title && draft.detail.trimmed() == detail;
          });
          Q_EMIT draftsChanged();
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
  drafts_.append({title, detail, module});
  Q_EMIT draftsChanged();
}

RequestDraft RequestSubmission::takeDraft() {
  if (drafts_.isEmpty()) return {};
  const RequestDraft newest = drafts_.takeLast();
  Q_EMIT draftsChanged();
  return newest;
}

}  // namespace orvex
