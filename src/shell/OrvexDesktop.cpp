#include "shell/OrvexDesktop.h"

#include "platform/Workspace.h"
#include "shell/OrvexState.h"

#include <QPointer>

namespace orvex {

void OrvexDesktop::reveal(const QUrl& file) {
  workspace_.reveal(file, [self = QPointer(this)](const std::expected<void, QString>& revealed) {
    if (self && !revealed) self->state_.showToast(revealed.error(), OrvexToast::Kind::error, 5.0);
  });
}

}  // namespace orvex
