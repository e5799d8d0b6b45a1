#include "shell/OrvexDesktop.h"

#include "platform/Workspace.h"
#include "services/HttpsAddress.h"
#include "shell/OrvexState.h"

#include <QPointer>

namespace orvex {

void OrvexDesktop::reveal(const QUrl& file) {
  workspace_.reveal(file, [self = QPointer(this)](const std::expected<void, QString>& revealed) {
    if (self && !revealed) self->state_.showToast(revealed.error(), OrvexToast::Kind::error, 5.0);
  });
}

void OrvexDesktop::openPage(const QUrl& page) {
  if (!isHttpsAddress(page)) return;
  if (!workspace_.open(page))
    state_.showToast(
        QStringLiteral("%1 tarayıcıda açılamadı. Adresi bir tarayıcıya yaz.").arg(page.toString()),
        OrvexToast::Kind::error, 5.0);
}

}  // namespace orvex
