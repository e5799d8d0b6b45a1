#include "runtime/QuickFolderChooser.h"

#include "platform/SystemLog.h"

#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

namespace orvex {
namespace {

// One dialog, from its opening to its end. Its class is known to QML only, so it is spoken to by
// name.
class OpenDialog final : public QObject {
  Q_OBJECT

 public:
  OpenDialog(QObject* dialog, QQuickItem* focused, FolderChooser::Chosen chosen, QObject* parent)
      : QObject(parent),
        dialog_(dialog),
        focused_(focused),
        ringShown_(focused != nullptr && focused->property("visualFocus").toBool()),
        chosen_(std::move(chosen)) {
    dialog->setParent(this);
    connect(dialog, SIGNAL(accepted()), this, SLOT(accepted()));
    connect(dialog, SIGNAL(rejected()), this, SLOT(rejected()));
    QMetaObject::invokeMethod(dialog, "open");
  }
  ~OpenDialog() override {
    chosen_ = nullptr;
    QMetaObject::invokeMethod(dialog_, "close");
  }

 private Q_SLOTS:
  void accepted() {
    const QUrl folder = dialog_->property("selectedFolder").toUrl();
    if (!folder.isLocalFile()) return end(std::nullopt);
    end(folder.adjusted(QUrl::StripTrailingSlash));
  }
  void rejected() { end(std::nullopt); }

 private:
  void end(const std::optional<QUrl>& folder) {
    if (!chosen_) return;
    QMetaObject::invokeMethod(this, &OpenDialog::giveFocusBack, Qt::QueuedConnection);
    deleteLater();
    std::exchange(chosen_, nullptr)(folder);
  }

  // What the toolkit does not do; it comes after what it does when the dialog has closed. The
  // button can be hidden by then, as there is a folder now: the Tab key goes on from its place all
  // the same.
  void giveFocusBack() {
    if (focused_)
      focused_->forceActiveFocus(ringShown_ ? Qt::TabFocusReason : Qt::PopupFocusReason);
  }

  QObject* const dialog_;
  // What had the focus, and whether a ring said so.
  const QPointer<QQuickItem> focused_;
  const bool ringShown_;
  FolderChooser::Chosen chosen_;
};

}  // namespace

void QuickFolderChooser::choose(const QString& title, const QString& prompt, Chosen chosen) {
  QQmlComponent component(&engine_);
  component.setData("import QtQuick.Dialogs\nFolderDialog { options: FolderDialog.ReadOnly }",
                    QUrl());
  QObject* dialog = component.createWithInitialProperties(
      {{QStringLiteral("title"), title},
       {QStringLiteral("acceptLabel"), prompt},
       {QStringLiteral("rejectLabel"), QStringLiteral("İptal")},
       {QStringLiteral("parentWindow"), QVariant::fromValue<QWindow*>(&window_)}});
  if (dialog != nullptr) {
    new OpenDialog(dialog, window_.activeFocusItem(), std::move(chosen), &dialogs_);
    return;
  }
  log_.line(QStringLiteral("[Vantrelo Orvex] no folder dialog: %1").arg(component.errorString()));
  QMetaObject::invokeMethod(
      &dialogs_, [chosen = std::move(chosen)] { chosen(std::nullopt); }, Qt::QueuedConnection);
}

}  // namespace orvex

#include "QuickFolderChooser.moc"
