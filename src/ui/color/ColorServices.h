#pragma once

#include "lut/LUTApplyBridge.h"
#include "shell/OrvexState.h"
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
  /// A bridge for the life of `page`, and longer where that ends before an exchange does. What the
  /// helper says is a toast of `state`; so is why there is no answer, once the page cannot say it.
  Q_INVOKABLE [[nodiscard]] orvex::LUTApplyBridge* makeBridge(QObject* page,
                                                              orvex::OrvexState* state);

 private:
  const LUTApplyBridge::Environment bridge_;
  std::unique_ptr<LUTPreviews> previews_;
};

}  // namespace orvex
