#include "shell/VantreloOrvexFinalCutExtensionViewController.h"

#include "engines/AudioUnitRegistry.h"
#include "engines/FxPlugRegistry.h"
#include "engines/LUTRegistry.h"
#include "engines/MotionTemplateRegistry.h"
#include "host/FinalCutHostAdapter.h"
#include "platform/HostRuntime.h"
#include "platform/SystemLog.h"
#include "platform/Workspace.h"
#include "shell/OrvexState.h"

#include <QUrl>

#include <chrono>
#include <cmath>

namespace orvex {
namespace {

using namespace std::chrono_literals;

constexpr ViewColor kBackground{0.012, 0.017, 0.023, 1.0};
constexpr auto kFocusDelay = 300ms;
constexpr auto kConnectDelay = 600ms;
// The panel is laid out anew for each size.
constexpr auto kPanelSizeInterval = 16ms;

QString sizeText(QSizeF size) {
  return QStringLiteral("{%1, %2}").arg(size.width()).arg(size.height());
}

// A requested extent counts only if it was sent as a 64-bit floating-point number that is finite
// and large enough.
bool isExtent(const QVariant& value) {
  return value.typeId() == QMetaType::Double && std::isfinite(value.toDouble()) &&
         value.toDouble() >= kLeastPanelExtent;
}

}  // namespace

VantreloOrvexFinalCutExtensionViewController::VantreloOrvexFinalCutExtensionViewController(
    const Environment& environment)
    : environment_(environment),
      orvexState_(std::make_shared<OrvexState>()),
      desktop_(*orvexState_, environment.workspace),
      motionRegistry_(std::make_unique<MotionTemplateRegistry>(environment.bookmarks,
                                                               environment.firstReading)),
      audioRegistry_(std::make_unique<AudioUnitRegistry>(environment.audioComponents,
                                                         environment.firstReading)),
      lutRegistry_(std::make_unique<LUTRegistry>(environment.bookmarks, environment.firstReading)),
      fxPlugRegistry_(
          std::make_unique<FxPlugRegistry>(environment.bookmarks, environment.firstReading)) {
  connect(&environment_.hostRuntime, &HostRuntime::hostSingletonChanged, this, [this] {
    if (connected_) hostAdapter().connect();
  });
  const auto tellRefused = [this](const QString& reason) {
    orvexState_->showToast(reason, OrvexToast::Kind::error, 5.0);
  };
  for (const FolderRegistry* registry : std::initializer_list<FolderRegistry*>{
           motionRegistry_.get(), lutRegistry_.get(), fxPlugRegistry_.get()})
    connect(registry, &FolderRegistry::refused, this, tellRefused);
  panelSizing_.setSingleShot(true);
  connect(&panelSizing_, &QTimer::timeout, this,
          &VantreloOrvexFinalCutExtensionViewController::grantPanelSize);
}

VantreloOrvexFinalCutExtensionViewController::~VantreloOrvexFinalCutExtensionViewController() {
  panelSizeObserver_.reset();
  // The view shows the other objects, so it goes before them.
  hostingController_.reset();
}

FinalCutHostAdapter& VantreloOrvexFinalCutExtensionViewController::hostAdapter() {
  if (!hostAdapter_) {
    hostAdapter_ = std::make_unique<FinalCutHostAdapter>(orvexState_, environment_.hostRuntime,
                                                         environment_.workspace, environment_.log);
  }
  return *hostAdapter_;
}

void VantreloOrvexFinalCutExtensionViewController::loadView() {
  environment_.view.createView(kPanelSize, kBackground);
  environment_.view.setPreferredContentSize(kPanelSize);
  environment_.log.line(
      QStringLiteral("[Vantrelo Orvex] loadView size=%1").arg(sizeText(kPanelSize)));
}

void VantreloOrvexFinalCutExtensionViewController::viewDidLoad() {
  hostingController_ =
      environment_.view.hostRootView({*orvexState_, *motionRegistry_, *audioRegistry_,
                                      *lutRegistry_, *fxPlugRegistry_, hostAdapter(), desktop_});
  panelSizeObserver_ = environment_.notifications.subscribe(
      QStringLiteral("com.vantrelo.orvex.finalcut.panel-size"),
      [this](const QVariantMap& userInfo) { panelSizeRequested(userInfo); });
  environment_.log.line(QStringLiteral("[Vantrelo Orvex] stable architecture ready"));
}

void VantreloOrvexFinalCutExtensionViewController::panelSizeRequested(const QVariantMap& userInfo) {
  const QVariant width = userInfo.value(QStringLiteral("width"));
  const QVariant height = userInfo.value(QStringLiteral("height"));
  if (isExtent(width)) panelWidth_ = width.toDouble();
  if (isExtent(height)) panelHeight_ = height.toDouble();
  if (!panelSizing_.isActive()) grantPanelSize();
}

// Any process may ask thousands of times a second; the first counts at once and then the last of
// each interval.
void VantreloOrvexFinalCutExtensionViewController::grantPanelSize() {
  if (!panelWidth_ && !panelHeight_) return;
  if (panelWidth_) orvexState_->setPanelWidth(*std::exchange(panelWidth_, {}));
  if (panelHeight_) orvexState_->setPanelHeight(*std::exchange(panelHeight_, {}));
  panelSizing_.start(kPanelSizeInterval);
}

void VantreloOrvexFinalCutExtensionViewController::viewDidAppear() {
  environment_.view.setPreferredContentSize(kPanelSize);
  environment_.log.line(
      QStringLiteral("[Vantrelo Orvex] viewDidAppear window=%1 size=%2")
          .arg(environment_.view.windowDescription(), sizeText(environment_.view.viewSize())));
  QTimer::singleShot(kFocusDelay, this, [this] {
    // Whether the companion application is there makes no difference to the panel.
    std::ignore =
        environment_.workspace.open(QUrl(QStringLiteral("vantrelo-finalcut://focus-panel")));
  });
  QTimer::singleShot(kConnectDelay, this, [this] { connectHost(); });
}

void VantreloOrvexFinalCutExtensionViewController::connectHost() {
  if (!environment_.view.isInWindow()) return;
  connected_ = true;
  hostAdapter().connect();
  audioRegistry_->refresh();
}

void VantreloOrvexFinalCutExtensionViewController::viewWillDisappear() {
  connected_ = false;
  hostAdapter().disconnect();
}

}  // namespace orvex
