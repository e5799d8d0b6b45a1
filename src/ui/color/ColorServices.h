#pragma once

#include "lut/LUTApplyBridge.h"
#include "shell/OrvexState.h"
#include "ui/color/LUTPreviews.h"

#include <QPointer>

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
  /// The bridge for `page`: the one that the page before it used, whose exchange may still go on.
  /// What the helper says is a toast of `state`, always the same one; so is why there is no answer,
  /// while there is no page to say it.
  Q_INVOKABLE [[nodiscard]] orvex::LUTApplyBridge* bridgeFor(QObject* page,
                                                             orvex::OrvexState* state);

 private:
  const LUTApplyBridge::Environment environment_;
  std::unique_ptr<LUTPreviews> previews_;
  LUTApplyBridge* bridge_ = nullptr;
  QPointer<QObject> page_;
};

}  // namespace orvex
