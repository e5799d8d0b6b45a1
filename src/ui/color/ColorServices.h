#pragma once

#include "lut/LUTApplyBridge.h"
#include "ui/color/LUTPreviews.h"

namespace orvex {

/// What the Color page works with beside the panel's state. One for the life of the panel.
class ColorServices : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("The panel is put together with one.")
  Q_PROPERTY(orvex::LUTPreviews* previews READ previews CONSTANT FINAL)

 public:
  /// Previews are kept below `cacheFolder`. `hostPicture`, which may be null, and what `bridge`
  /// names outlive this.
  ColorServices(LUTApplyBridge::Environment bridge, HostPicture* hostPicture,
                const QString& cacheFolder);
  ~ColorServices() override;

  [[nodiscard]] LUTPreviews* previews() const noexcept { return previews_.get(); }
  /// A bridge that lives as long as `page`.
  Q_INVOKABLE [[nodiscard]] orvex::LUTApplyBridge* makeBridge(QObject* page) const;

 private:
  const LUTApplyBridge::Environment bridge_;
  std::unique_ptr<LUTPreviews> previews_;
};

}  // namespace orvex
