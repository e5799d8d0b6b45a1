#include "runtime/QuickFolderChooser.h"

#include "ui/FolderBrowser.h"

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
  OpenDialog(QQmlEngine& engine, QQuickItem& area, QVariantMap words, const QUrl& start,
             FolderChooser::Chosen chosen, QObject* parent)
      : QObject(parent),
        focused_(area.window()->activeFocusItem()),
        ringShown_(focused_ && focused_->property("visualFocus").toBool()),
        chosen_(std::move(chosen)) {
    words.insert({{QStringLiteral("parent"), QVariant::fromValue(&area)},
                  {QStringLiteral("browser"), QVariant::fromValue(&browser_)},
                  {QStringLiteral("keyed"), ringShown_}});
    QQmlComponent component(&engine,
                            QUrl(QStringLiteral("qrc:/qt/qml/Orvex/Pages/OrvexFolderDialog.qml")));
    dialog_.reset(component.createWithInitialProperties(words));
    if (!dialog_) qFatal("%s", qUtf8Printable(component.errorString()));
    connect(dialog_.get(), SIGNAL(closed()), this, SLOT(closed()));
    browser_.begin(start);
    QMetaObject::invokeMethod(dialog_.get(), "open");
  }
  ~OpenDialog() override {
    chosen_ = nullptr;
    QMetaObject::invokeMethod(dialog_.get(), "close");
  }

 private Q_SLOTS:
  void closed() {
    if (!chosen_) return;
    QMetaObject::invokeMethod(this, &OpenDialog::giveFocusBack, Qt::QueuedConnection);
    deleteLater();
    const bool accepted = dialog_->property("accepted").toBool();
    std::exchange(chosen_, nullptr)(accepted ? std::optional(browser_.folder()) : std::nullopt);
  }

 private:
  // What the toolkit does not do; it comes after what it does when the dialog has closed. The
  // button can be hidden by then, as there is a folder now: the Tab key goes on from its place all
  // the same.
  void giveFocusBack() {
    if (focused_)
      focused_->forceActiveFocus(ringShown_ ? Qt::TabFocusReason : Qt::PopupFocusReason);
  }

  // What had the focus, and whether a ring said so.
  const QPointer<QQuickItem> focused_;
  const bool ringShown_;
  FolderChooser::Chosen chosen_;
  FolderBrowser browser_;
  std::unique_ptr<QObject> dialog_;
};

}  // namespace

void QuickFolderChooser::choose(const QString& title, const QString& prompt, const QUrl& start,
                                Chosen chosen) {
  // Owned by `dialogs_`, and by itself.
  new OpenDialog(engine_, area_,
                 {{QStringLiteral("title"), title}, {QStringLiteral("prompt"), prompt}}, start,
                 std::move(chosen), &dialogs_);
}

}  // namespace orvex

#include "QuickFolderChooser.moc"
