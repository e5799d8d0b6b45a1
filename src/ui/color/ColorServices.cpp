#include "ui/color/ColorServices.h"

#include "ui/color/PreviewStore.h"

#include <QPointer>

namespace orvex {

ColorServices::ColorServices(LUTApplyBridge::Environment bridge, HostPicture* hostPicture,
                             const QString& cacheFolder)
    : bridge_(std::move(bridge)),
      previews_(std::make_unique<LUTPreviews>(
          std::make_shared<PreviewStore>(cacheFolder + QStringLiteral("/lut-previews")),
          hostPicture)) {}

ColorServices::~ColorServices() = default;

LUTApplyBridge* ColorServices::makeBridge(QObject* page, OrvexState* state) {
  auto* const bridge = new LUTApplyBridge(bridge_, this);
  connect(bridge, &LUTApplyBridge::lastResultChanged, state, [bridge, state] {
    if (const auto& result = bridge->lastResult())
      state->showToast(
          *result, bridge->lastSucceeded() ? OrvexToast::Kind::success : OrvexToast::Kind::error,
          6.0);
  });
  connect(bridge, &LUTApplyBridge::failed, state,
          [state, page = QPointer<QObject>(page)](const QString& description) {
            if (!page)
              state->showToast(QStringLiteral("LUT uygulanamadı • ") + description,
                               OrvexToast::Kind::error, 6.0);
          });
  connect(page, &QObject::destroyed, bridge, [bridge] {
    if (!bridge->activePath()) return bridge->deleteLater();
    connect(bridge, &LUTApplyBridge::activePathChanged, bridge, &QObject::deleteLater);
  });
  return bridge;
}

}  // namespace orvex
