#include "ui/color/ColorServices.h"

#include "ui/color/PreviewStore.h"

namespace orvex {

ColorServices::ColorServices(LUTApplyBridge::Environment bridge, HostPicture* hostPicture,
                             const QString& cacheFolder)
    : environment_(std::move(bridge)),
      previews_(std::make_unique<LUTPreviews>(
          std::make_shared<PreviewStore>(cacheFolder + QStringLiteral("/lut-previews")),
          hostPicture)) {}

ColorServices::~ColorServices() = default;

LUTApplyBridge* ColorServices::bridgeFor(QObject* page, OrvexState* state) {
  page_ = page;
  if (bridge_ != nullptr) return bridge_;
  bridge_ = new LUTApplyBridge(environment_, this);
  connect(bridge_, &LUTApplyBridge::lastResultChanged, state, [this, state] {
    if (const auto& result = bridge_->lastResult())
      state->showToast(
          *result, bridge_->lastSucceeded() ? OrvexToast::Kind::success : OrvexToast::Kind::error,
          6.0);
  });
  connect(bridge_, &LUTApplyBridge::failed, state, [this, state](const QString& description) {
    if (!page_)
      state->showToast(QStringLiteral("LUT uygulanamadı • ") + description, OrvexToast::Kind::error,
                       6.0);
  });
  return bridge_;
}

}  // namespace orvex
