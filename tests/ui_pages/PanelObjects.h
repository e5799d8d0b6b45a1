#pragma once

#include "LibraryFiles.h"
#include "base/NewFile.h"
#include "base/PropertyList.h"
#include "engines/AudioUnitRegistry.h"
#include "engines/FxPlugRegistry.h"
#include "engines/LUTRegistry.h"
#include "engines/MotionTemplateRegistry.h"
#include "host/FinalCutHostAdapter.h"
#include "lut/ManagedLibrary.h"
#include "platform/HostRuntime.h"
#include "platform/hosts/BuiltInHost.h"
#include "platform/hosts/HostChoice.h"
#include "runtime/PanelWindow.h"
#include "runtime/QuickFolderChooser.h"
#include "runtime/QuickPanelView.h"
#include "shell/OrvexDesktop.h"
#include "shell/OrvexState.h"
#include "support/NoSystem.h"
#include "support/TestCloud.h"
#include "support/TestPack.h"
#include "support/Wait.h"
#include "ui/color/ColorServices.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QFile>
#include <QMetaProperty>
#include <QQmlEngine>
#include <QQmlPropertyMap>
#include <QUrl>

namespace orvex {

/// The bundles of application and extension, and the folders that the user's data goes to.
struct AppTree : TemporaryTree {
  AppTree() {
    qputenv("XDG_DATA_HOME", path("data"));
    folder("X.app/Contents/PlugIns/E.appex");
    file("X.app/Contents/Info.plist",
         "<plist><dict><key>CFBundleIdentifier</key>"
         "<string>com.vantrelo.orvex.finalcut</string></dict></plist>");
  }
};

/// The objects of one panel beside a built-in host, put together as the controller does it, without
/// a desktop behind them.
class PanelObjects : public QQmlPropertyMap, public RecordedDesktop {
  Q_OBJECT
  /// The addresses that the desktop was asked to open.
  Q_PROPERTY(QStringList opened MEMBER opened)
  /// The files that the file manager was asked to show, which it cannot.
  Q_PROPERTY(QList<QUrl> revealed MEMBER revealed_)
  /// Why the LUT helper cannot be started; empty when it can.
  Q_PROPERTY(QString launchError MEMBER launchError)
  /// The reasons of the host refreshes, oldest first.
  Q_PROPERTY(QStringList refreshes MEMBER refreshes_)
  /// The paths in the URLs of the folders that the dialog answered, "nothing" where it was
  /// cancelled.
  Q_PROPERTY(QStringList answers MEMBER answers_)

 public:
  PanelObjects() : QQmlPropertyMap(this, nullptr) {
    const QMap<QByteArray, QObject*> parts{
        {"state", state_.get()},
        {"motion", &motion_},
        {"audio", &audio_},
        {"luts", &luts_},
        {"fxplug", &fxplug_},
        {"hostAdapter", &adapter_},
        {"desktop", &desktop_},
        {"colorServices", &colorServices_},
        {"files", &files_},
        {"host", dynamic_cast<BuiltInHost*>(runtime_->hostSingleton().get())}};
    for (const auto& [name, part] : parts.asKeyValueRange())
      insert(QString::fromLatin1(name), QVariant::fromValue(part));
    for (const FolderRegistry* registry : std::initializer_list<FolderRegistry*>{&motion_, &luts_})
      connect(registry, &FolderRegistry::refused, this, [this](const QString& reason) {
        state_->showToast(reason, OrvexToast::Kind::error, 5.0);
      });
  }

  /// Puts a pack with these files into the store; the values name files of the corpus of odd LUTs.
  Q_INVOKABLE void installLUTs(const QString& name, const QVariantMap& files) const {
    QMap<QString, QByteArray> contents;
    for (const auto& [file, odd] : files.asKeyValueRange())
      contents[file] = contentsOf(QStringLiteral(ODD_CUBES "/") + odd.toString());
    TestPack made(name, QStringLiteral("1.0"), contents);
    made.pack.name = name;
    made.installIn(PackStore(cloud_.store().toUtf8()));
  }
  /// Answers the request that the LUT bridge left, as the helper would. False while there is none.
  Q_INVOKABLE bool answerLUTRequest(bool ok, const QString& message) {
    const QString folder =
        QFile::decodeName(ManagedLibrary::userPath()) + QStringLiteral("/Bridge Requests");
    const QStringList requests = QDir(folder).entryList({QStringLiteral("request-*.plist")});
    QFile request(folder + u'/' + requests.value(0));
    if (requests.isEmpty() || !request.open(QIODevice::ReadOnly)) return false;
    const QVariantMap asked = PropertyList::parse(request.readAll())->toMap();
    const auto reply =
        PropertyList::binary({{QStringLiteral("ok"), ok}, {QStringLiteral("message"), message}});
    return request.remove() &&
           replaceFile(asked.value(QStringLiteral("reply")).toString().toUtf8(), *reply);
  }

  /// Whether a window with these objects lets the inventories read once it has shown a frame, and
  /// not before.
  Q_INVOKABLE bool readsFromTheFirstFrame(QQuickItem* item) {
    const auto firstReading = std::make_shared<Gate>();
    const auto mayRead = [&] { return firstReading->wait({}, std::chrono::milliseconds(0)); };
    PanelWindow window;
    QuickPanelView view(*qmlEngine(item), window, colorServices_, firstReading);
    const auto hosted =
        view.hostRootView({*state_, motion_, audio_, luts_, fxplug_, adapter_, desktop_});
    if (mayRead()) return false;
    window.show();
    return waitUntil(mayRead);
  }
  /// Opens the folder dialog over `item`, at the folder `start`.
  Q_INVOKABLE void chooseFolder(QQuickItem* item, const QUrl& start) {
    chooser_ = std::make_unique<QuickFolderChooser>(*qmlEngine(item), *item);
    chooser_->choose({}, QStringLiteral("Seç"), start, [this](const std::optional<QUrl>& folder) {
      answers_.append(folder ? QString::fromLatin1(folder->toEncoded()).sliced(7)
                             : QStringLiteral("nothing"));
    });
  }
  Q_INVOKABLE void dropChooser() { chooser_.reset(); }
  Q_INVOKABLE void connectHost() { adapter_.connect(); }
  /// Publishes the disconnected snapshot changed by `fields`, as if the host had reported it.
  Q_INVOKABLE void report(const QVariantMap& fields) {
    HostSnapshot snapshot;
    for (const auto& [name, value] : fields.asKeyValueRange())
      HostSnapshot::staticMetaObject
          .property(HostSnapshot::staticMetaObject.indexOfProperty(qPrintable(name)))
          .writeOnGadget(&snapshot, value);
    state_->setHost(snapshot);
  }
  /// From the next refresh on, the system has one audio effect.
  Q_INVOKABLE void installEffect() {
    effects_->listed = {{.name = QStringLiteral("Yankı"),
                         .manufacturerName = QStringLiteral("Kurgu Ses"),
                         .versionString = QStringLiteral("2.4"),
                         .typeName = QStringLiteral("Delay Plugin"),
                         .passesValidation = true,
                         .manufacturer = 0x4B75'7267,  // "Kurg"
                         .subType = 7}};
  }
  /// What the vendor's services answer; until told, nothing.
  Q_INVOKABLE void publishRelease(const QString& version, const QVariantMap& fields) {
    cloud_.release(version, QJsonObject::fromVariantMap(fields));
  }
  Q_INVOKABLE void publishPack(const QString& id, const QString& name, const QString& version,
                               int bytes) {
    cloud_.pack(id, name, version, QByteArray(bytes, 'x'));
    cloud_.publishCatalog();
  }
  Q_INVOKABLE void publishPacks(int count) {
    for (int i = 0; i < count; ++i)
      cloud_.pack(QString::number(i), QStringLiteral("Pack %1").arg(i), QStringLiteral("1"));
    cloud_.publishCatalog();
  }
  Q_INVOKABLE void watchModel(QAbstractItemModel* model) {
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Warning,
                                 model);
  }
  /// Installed as if by another panel.
  Q_INVOKABLE void installElsewhere(const QString& id) {
    for (const UniversalPack& pack : cloud_.packs().finalCutPacks())
      if (pack.id == id) cloud_.packs().install(pack);
  }
  Q_INVOKABLE void holdPack(const QString& id) { cloud_.hold(id); }
  Q_INVOKABLE void answerRequests(int status, const QString& body) {
    cloud_.server.answer(TestCloud::kRequests, status, body.toUtf8());
  }
  /// The body of the last request that was sent, as text.
  Q_INVOKABLE QString lastRequest() const {
    return QString::fromUtf8(cloud_.server.requests().constLast().body);
  }
  Q_INVOKABLE void cutNetwork() { cloud_.server.die(); }
  /// How often the services were asked for `path`.
  Q_INVOKABLE int asked(const QString& path) const {
    const auto requests = cloud_.server.requests();
    return static_cast<int>(std::ranges::count_if(
        requests, [&](const auto& request) { return request.target.startsWith(path.toUtf8()); }));
  }

 private:
  void reveal(const QUrl& file, Revealed revealed) override {
    revealed_.append(file);
    revealed(std::unexpected(QStringLiteral("gösterilemedi")));
  }
  void line(const QString& text) override {
    const QString prefix = QStringLiteral("[Vantrelo Orvex] host refresh ");
    if (text.startsWith(prefix)) refreshes_.append(text.mid(prefix.size()).section(u' ', 0, 0));
  }

  LibraryFiles files_;
  TestCloud cloud_;
  std::shared_ptr<OrvexState> state_ = std::make_shared<OrvexState>(cloud_.services());
  NoFolders folders_;
  MotionTemplateRegistry motion_{folders_.store};
  std::shared_ptr<ListedAudio> effects_ = std::make_shared<ListedAudio>();
  AudioUnitRegistry audio_{effects_};
  LUTRegistry luts_{folders_.store};
  FxPlugRegistry fxplug_{folders_.store};
  std::unique_ptr<HostRuntime> runtime_ = makeHostRuntime({});
  FinalCutHostAdapter adapter_{state_, *runtime_, *this, *this};
  OrvexDesktop desktop_{*state_, *this};
  AppTree app_;
  ColorServices colorServices_{
      {*this, folders_.access, *this, app_.text("X.app/Contents/PlugIns/E.appex")},
      nullptr,
      app_.text("cache")};
  QList<QUrl> revealed_;
  QStringList refreshes_;
  std::unique_ptr<QuickFolderChooser> chooser_;
  QStringList answers_;
};

}  // namespace orvex
