#include "platform/linux/PortalChooser.h"

#include "platform/SystemLog.h"
#include "platform/linux/PortalRequest.h"

namespace orvex {

void PortalChooser::choose(const QString& title, const QString& prompt, const QUrl& start,
                           Chosen chosen) {
  const auto unavailable = [this, title, prompt, start, chosen](const QString& reason) {
    log_.line(
        QStringLiteral("[Vantrelo Orvex] no folder chooser from the desktop: %1").arg(reason));
    if (fallback_ != nullptr)
      fallback_->choose(title, prompt, start, chosen);
    else
      chosen(std::nullopt);
  };
  // Owned by `requests_`, and by itself.
  new PortalRequest(bus_, title, prompt, start, {chosen, unavailable}, &requests_);
}

}  // namespace orvex
