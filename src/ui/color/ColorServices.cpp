#include "ui/color/ColorServices.h"

#include "ui/color/PreviewStore.h"

namespace orvex {

ColorServices::ColorServices(LUTApplyBridge::Environment bridge, HostPicture* hostPicture,
                             const QString& cacheFolder)
    : bridge_(std::move(bridge)),
      previews_(std::make_unique<LUTPreviews>(
          std::make_shared<PreviewStore>(cacheFolder + QStringLiteral("/lut-previews")),
          hostPicture)) {}

ColorServices::~ColorServices() = default;

LUTApplyBridge* ColorServices::makeBridge(QObject* page) const {
  return new LUTApplyBridge(bridge_, page);
}

}  // namespace orvex
