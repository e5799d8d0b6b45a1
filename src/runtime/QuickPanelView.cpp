#include "runtime/QuickPanelView.h"

#include "engines/AudioUnitRegistry.h"
#include "engines/FxPlugRegistry.h"
#include "engines/LUTRegistry.h"
#include "engines/MotionTemplateRegistry.h"
#include "host/FinalCutHostAdapter.h"
#include "runtime/PanelWindow.h"
#include "shell/OrvexDesktop.h"
#include "shell/OrvexState.h"
#include "ui/color/ColorServices.h"

#include <QColor>
#include <QQuickItem>

namespace orvex {
namespace {

constexpr QLatin1String kRootView("qrc:/qt/qml/Orvex/Pages/OrvexRootView.qml");

class HostedRootView final : public PanelViewHost::HostedView {
 public:
  HostedRootView(std::unique_ptr<QQuickItem> root, QQuickItem* area) : root_(std::move(root)) {
    root_->setParentItem(area);
    const auto fill = [root = root_.get(), area] { root->setSize(area->size()); };
    QObject::connect(area, &QQuickItem::widthChanged, root_.get(), fill);
    QObject::connect(area, &QQuickItem::heightChanged, root_.get(), fill);
    fill();
  }

 private:
  std::unique_ptr<QQuickItem> root_;
};

}  // namespace

std::unique_ptr<QQuickItem> makeQuickItem(QQmlEngine& engine, const QString& url,
                                          const QVariantMap& properties) {
  QQmlComponent component(&engine, QUrl(url));
  if (!component.isReady()) qFatal("%s", qUtf8Printable(component.errorString()));
  std::unique_ptr<QObject> object(component.createWithInitialProperties(properties));
  auto* item = qobject_cast<QQuickItem*>(object.get());
  if (item == nullptr) qFatal("%s", qUtf8Printable(component.errorString()));
  std::ignore = object.release();
  return std::unique_ptr<QQuickItem>(item);
}

QuickPanelView::QuickPanelView(QQmlEngine& engine, PanelWindow& window,
                               ColorServices& colorServices, FirstReading firstReading)
    : engine_(engine),
      window_(window),
      colorServices_(colorServices),
      firstReading_(std::move(firstReading)),
      files_(&engine, QUrl(kRootView), QQmlComponent::Asynchronous) {}

void QuickPanelView::createView(QSizeF size, const ViewColor& background) {
  window_.setColor(
      QColor::fromRgbF(static_cast<float>(background.red), static_cast<float>(background.green),
                       static_cast<float>(background.blue), static_cast<float>(background.alpha)));
  window_.resizePanel(size);
}

void QuickPanelView::setPreferredContentSize(QSizeF) {
  // A window is granted its size once, when it is made; what the user or another process made of it
  // since then stays.
}

std::unique_ptr<PanelViewHost::HostedView> QuickPanelView::hostRootView(
    const RootViewObjects& objects) {
  auto root =
      makeQuickItem(engine_, kRootView,
                    {{QStringLiteral("state"), QVariant::fromValue(&objects.state)},
                     {QStringLiteral("motion"), QVariant::fromValue(&objects.motion)},
                     {QStringLiteral("audio"), QVariant::fromValue(&objects.audio)},
                     {QStringLiteral("luts"), QVariant::fromValue(&objects.luts)},
                     {QStringLiteral("fxplug"), QVariant::fromValue(&objects.fxplug)},
                     {QStringLiteral("hostAdapter"), QVariant::fromValue(&objects.hostAdapter)},
                     {QStringLiteral("colorServices"), QVariant::fromValue(&colorServices_)},
                     {QStringLiteral("desktop"), QVariant::fromValue(&objects.desktop)},
                     {QStringLiteral("pageWanted"), false}});
  // The frame around the page is on screen sooner when the page is made behind it.
  QObject::connect(
      &window_, &QQuickWindow::frameSwapped, root.get(),
      [root = root.get(), firstReading = firstReading_] {
        root->setProperty("pageWanted", true);
        firstReading->open();
      },
      static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
  return std::make_unique<HostedRootView>(std::move(root), window_.panelArea());
}

bool QuickPanelView::isInWindow() const {
  return window_.isVisible();
}

QString QuickPanelView::windowDescription() const {
  if (!isInWindow()) return QStringLiteral("nil");
  return QStringLiteral("<%1: %2x%3>")
      .arg(window_.title())
      .arg(window_.width())
      .arg(window_.height());
}

QSizeF QuickPanelView::viewSize() const {
  return window_.panelArea()->size();
}

}  // namespace orvex
