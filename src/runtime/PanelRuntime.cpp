#include "runtime/PanelRuntime.h"

#include "base/Bundle.h"
#include "base/UserFolders.h"
#include "engines/FolderBookmarkStore.h"
#include "host/FinalCutHostAdapter.h"
#include "platform/DistributedNotifications.h"
#include "platform/HostPicture.h"
#include "platform/HostRuntime.h"
#include "platform/Platform.h"
#include "platform/SystemLog.h"
#include "platform/Workspace.h"
#include "platform/hosts/BuiltInHost.h"
#include "runtime/PanelWindow.h"
#include "runtime/QuickFolderChooser.h"
#include "runtime/QuickPanelView.h"
#include "shell/OrvexState.h"
#include "shell/VantreloOrvexFinalCutExtensionViewController.h"
#include "ui/OrvexMotion.h"
#include "ui/color/ColorServices.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QQuickItem>

#include <cmath>

namespace orvex {
namespace {

// Opening a font takes a millisecond for each size of it, and the first frame shows a dozen. This
// thread opens them while the toolkit's reads the files; one that is missing here is opened later.
void openFonts() {
  const auto open = [](const QString& family, int pixels, int weight, QChar character) {
    QFont font(family, -1, weight);
    font.setPixelSize(pixels);
    std::ignore = QFontMetricsF(font).horizontalAdvance(character);
  };
  const QString texts = QGuiApplication::font().family();
  for (const int pixels : {7, 8, 9, 10}) open(texts, pixels, QFont::Black, u'A');
  for (const int pixels : {10, 12}) open(texts, pixels, QFont::Bold, u'A');
  for (const int pixels : {9, 16}) open(texts, pixels, QFont::Normal, u'A');
  for (const int pixels : {15, 17, 20})
    open(QStringLiteral("Material Icons"), pixels, QFont::Normal, u'\ue88a');
}

}  // namespace

PanelRuntime::PanelRuntime(const PanelOptions& options)
    : options_(options),
      platform_(makePlatform()),
      fonts_(std::async(std::launch::async, [this] { platform_->prepareFonts(); })),
      hostRuntime_(makeHostRuntime(options.host)),
      bookmarks_(std::make_unique<FolderBookmarkStore>(platform_->folderAccess(), settings_,
                                                       platform_->log())),
      window_(std::make_unique<PanelWindow>()),
      folderChooser_(std::make_unique<QuickFolderChooser>(engine_, *window_->panelArea())),
      hostPicture_(makeHostPicture(options.host)),
      colorServices_(std::make_unique<ColorServices>(
          LUTApplyBridge::Environment{platform_->workspace(), platform_->folderAccess(),
                                      platform_->log(), Bundle::main().path()},
          hostPicture_.get(), userCacheFolder())) {
  // Where the panel's own modules are; this version of the toolkit does not look there by itself.
  engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
  const auto firstReading = std::make_shared<Gate>();
  view_ = std::make_unique<QuickPanelView>(engine_, *window_, *colorServices_, firstReading);
  fonts_.wait();
  openFonts();
  if (platform_->prefersReducedMotion()) OrvexMotion::setReduced(true);
  platform_->setFallbackChooser(folderChooser_.get());
  using Controller = VantreloOrvexFinalCutExtensionViewController;
  controller_ = std::make_unique<Controller>(Controller::Environment{
      *hostRuntime_, platform_->workspace(), platform_->notifications(), platform_->log(),
      platform_->audioComponents(), *bookmarks_, *view_, firstReading});
  controller_->orvexState().setActivePage(options_.page);
  controller_->loadView();
  controller_->viewDidLoad();
  if (options_.size) {
    controller_->orvexState().setPanelWidth(options_.size->width());
    controller_->orvexState().setPanelHeight(options_.size->height());
    window_->resizePanel(*options_.size);
  }
}

PanelRuntime::~PanelRuntime() {
  platform_->setFallbackChooser(nullptr);
}

BuiltInHost* PanelRuntime::builtInHost() const {
  return dynamic_cast<BuiltInHost*>(hostRuntime_->hostSingleton().get());
}

void PanelRuntime::show() {
  if (BuiltInHost* host = builtInHost()) {
    window_->setStrip(makeQuickItem(engine_,
                                    QStringLiteral("qrc:/qt/qml/Orvex/Pages/BuiltInHostStrip.qml"),
                                    {{QStringLiteral("host"), QVariant::fromValue(host)}})
                          .release());
  }
  followSizes();
  connect(window_.get(), &PanelWindow::shown, controller_.get(),
          &VantreloOrvexFinalCutExtensionViewController::viewDidAppear);
  connect(window_.get(), &PanelWindow::hidden, controller_.get(),
          &VantreloOrvexFinalCutExtensionViewController::viewWillDisappear);
  platform_->exportPanel(*this);
  window_->show();
}

// The window is the host that grants the panel its size: it follows what is asked for, and what the
// user makes of it counts as asked for.
void PanelRuntime::followSizes() {
  OrvexState& state = controller_->orvexState();
  // Width and height in one step.
  resizing_.setSingleShot(true);
  resizing_.setInterval(0);
  connect(&resizing_, &QTimer::timeout, window_.get(), [this, &state] {
    window_->resizePanel({state.panelWidth(), state.panelHeight()});
  });
  const auto follow = [this] {
    if (!resizing_.isActive()) resizing_.start();
  };
  connect(&state, &OrvexState::panelWidthChanged, window_.get(), follow);
  connect(&state, &OrvexState::panelHeightChanged, window_.get(), follow);
  window_->resizePanel({state.panelWidth(), state.panelHeight()});
  const QQuickItem* area = window_->panelArea();
  connect(area, &QQuickItem::widthChanged, &state, [area, &state] {
    if (std::abs(area->width() - state.panelWidth()) >= 1) state.setPanelWidth(area->width());
  });
  connect(area, &QQuickItem::heightChanged, &state, [area, &state] {
    if (std::abs(area->height() - state.panelHeight()) >= 1) state.setPanelHeight(area->height());
  });
}

void PanelRuntime::saveScreenshot(std::function<void(bool)> done) {
  using namespace std::chrono_literals;
  // The size asked for, whatever the screen's.
  const OrvexState& state = controller_->orvexState();
  window_->resize(QSizeF(state.panelWidth(), state.panelHeight()).toSize());
  window_->show();
  // A player needs a moment to report itself; asked before, the page would say that there is none.
  QTimer::singleShot(500ms, this, [this] { controller_->hostAdapter().connect(); });
  // Pictures are loaded and fonts rasterised behind the first frames; what is on screen after this
  // time is what a person sees.
  QTimer::singleShot(1200ms, this, [this, done = std::move(done)] {
    done(window_->grabWindow().save(options_.screenshot, "PNG"));
  });
}

bool PanelRuntime::focusPanel() {
  // Not `show`, which would also bring a maximised window back to its normal size.
  window_->setWindowStates(window_->windowStates() & ~Qt::WindowStates(Qt::WindowMinimized));
  window_->setVisible(true);
  window_->raise();
  window_->requestActivate();
  return true;
}

QString PanelRuntime::hostInUse() {
  return options_.host.text();
}

bool PanelRuntime::performOnBuiltInHost(const QString& action) {
  BuiltInHost* host = builtInHost();
  return host != nullptr && host->performTimelineAction(action);
}

QString PanelRuntime::applyLUTOnBuiltInHost(const QString& name) {
  BuiltInHost* host = builtInHost();
  return host != nullptr ? host->applyLUT(name) : QString();
}

}  // namespace orvex
