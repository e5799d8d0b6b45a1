// The Motion page in a real window, and what the inventory's life costs the event loop behind it,
// one line per row: the longest time between two ticks of a 4 ms timer while scans run, and how
// long a keystroke and a step of scrolling take to their frame. Arguments: a folder to make data
// in, and how many entries its tree is to have.
#include "Gap.h"
#include "OpenAccess.h"
#include "engines/FolderBookmarkStore.h"
#include "engines/LUTRegistry.h"
#include "engines/MotionTemplateRegistry.h"
#include "ui/OrvexMotion.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSettings>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <thread>
#include <vector>

Q_IMPORT_QML_PLUGIN(OrvexPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_ColorPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_LibraryPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_PagesPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_SpeedPlugin)

namespace {

using namespace orvex;
namespace fs = std::filesystem;

void makeTree(const fs::path& root, int entries) {
  if (fs::exists(root)) return;
  for (int i = 0; i < entries / 6; ++i) {
    const fs::path folder = root / (i % 2 != 0 ? "Effects" : "Titles") /
                            ("Category " + std::to_string(i / 100)) / ("Name " + std::to_string(i));
    fs::create_directories(folder);
    const auto touch = [&](const std::string& name) {
      QFile file(folder / name);
      std::ignore = file.open(QIODevice::WriteOnly);
    };
    touch("Name " + std::to_string(i) + (i % 2 != 0 ? ".moef" : ".moti"));
    for (const char* name : {"a.motn", "b.motr", "c.moti", "d.png"}) touch(name);
  }
}

void wait(const std::function<bool()>& until) {
  QEventLoop loop;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    if (until()) loop.quit();
  });
  poll.start(20);
  loop.exec();
}

class Bench {
 public:
  Bench(const fs::path& data, int entries) : data_(data), tree_(data / "tree") {
    makeTree(tree_, entries);
    engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
    window_.resize(1040, 780);
    window_.show();
    showPage();
  }

  void run() {
    row("100,000 entries", [this] { use(*motion_, tree_); });
    measureFrames();

    const fs::path closed = tree_ / "Titles" / "Category 0";
    fs::permissions(closed, fs::perms::none);
    row("an unreadable sub-folder", [this] { motion_->scan(); });
    fs::permissions(closed, fs::perms::owner_all);

    fs::create_directory_symlink("..", tree_ / "loop");
    row("a link loop", [this] { motion_->scan(); });
    fs::remove(tree_ / "loop");

    row("two scans at once", [this] {
      motion_->scan();
      use(*luts_, tree_);
    });

    const fs::path moved = data_ / "moved";
    std::jthread mover;
    row("the folder vanishes meanwhile", [&] {
      motion_->scan();
      mover = std::jthread([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        fs::rename(tree_, moved);
      });
    });
    mover.join();
    fs::rename(moved, tree_);

    motion_->scan();
    Gap gap;
    QElapsedTimer closing;
    closing.start();
    page_.reset();
    motion_.reset();
    luts_.reset();
    std::printf("%-32s closed in %.1f ms\n", "closed during a scan",
                static_cast<double>(closing.nsecsElapsed()) / 1e6);
  }

 private:
  void showPage() {
    QQmlComponent component(&engine_,
                            QUrl(QStringLiteral("qrc:/qt/qml/Orvex/Pages/OrvexMotionView.qml")));
    page_.reset(qobject_cast<QQuickItem*>(component.createWithInitialProperties(
        {{QStringLiteral("registry"), QVariant::fromValue(motion_.get())}})));
    if (!page_) qFatal("%s", qPrintable(component.errorString()));
    page_->setParentItem(window_.contentItem());
    page_->setSize(QSizeF(window_.size()));
  }

  static void use(FolderRegistry& registry, const fs::path& folder) {
    const QUrl root = QUrl::fromLocalFile(QString::fromStdString(fs::absolute(folder)));
    registry.useFolder(root);
    wait([&] { return registry.rootURL() == root; });
  }

  void row(const char* title, const std::function<void()>& begin) {
    Gap gap;
    QElapsedTimer spent;
    spent.start();
    begin();
    wait([this] { return !motion_->isScanning() && !luts_->isScanning(); });
    std::printf(
        "%-32s longest gap %5.1f ms, its own %5.1f ms, in %.0f ms, %lld items, "
        "health %d\n",
        title, gap.longest(), gap.own(), static_cast<double>(spent.elapsed()),
        static_cast<long long>(motion_->items().size()), static_cast<int>(motion_->health()));
  }

  // Until the frame that shows it has been drawn.
  double frame(const std::function<void()>& change) {
    bool swapped = false;
    const auto watch =
        QObject::connect(&window_, &QQuickWindow::frameSwapped, [&] { swapped = true; });
    QElapsedTimer spent;
    spent.start();
    change();
    window_.update();
    while (!swapped) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QObject::disconnect(watch);
    return static_cast<double>(spent.nsecsElapsed()) / 1e6;
  }

  static void print(const char* title, std::vector<double> times) {
    std::ranges::sort(times);
    std::printf("%-32s median %5.1f ms, slowest %5.1f ms\n", title, times[times.size() / 2],
                times.back());
  }

  void measureFrames() {
    OrvexMotion::setReduced(true);
    auto* field = page_->findChild<QObject*>(QStringLiteral("search"));
    if (field == nullptr) qFatal("no search field");
    std::vector<double> typed;
    for (int round = 0; round < 3; ++round)
      for (const char16_t* text :
           {u"n", u"na", u"nam", u"name", u"name ", u"name 1", u"name 12", u"name 1", u"b", u""})
        typed.push_back(frame([&] { field->setProperty("text", QString::fromUtf16(text)); }));
    print("a keystroke to its frame", typed);
    std::vector<double> scrolled;
    for (int i = 0; i < 200; ++i)
      scrolled.push_back(frame([&] { page_->setProperty("contentY", i * 45); }));
    print("a step of the wheel to its frame", scrolled);
    std::vector<double> jumped;
    const double height = page_->property("contentHeight").toDouble();
    for (int i = 0; i < 50; ++i)
      jumped.push_back(
          frame([&] { page_->setProperty("contentY", std::floor(height * (i * 37 % 50) / 51)); }));
    print("a jump of the scroll bar", jumped);
    page_->setProperty("contentY", 0);
    OrvexMotion::setReduced(false);
    // What the frames have left behind is not the next row's.
    QElapsedTimer settled;
    settled.start();
    wait([&] { return settled.hasExpired(500); });
  }

  const fs::path data_;
  const fs::path tree_;
  OpenAccess access_;
  QSettings settings_{QString::fromStdString(data_ / "settings"), QSettings::IniFormat};
  FolderBookmarkStore bookmarks_{access_, settings_, access_};
  std::unique_ptr<MotionTemplateRegistry> motion_ =
      std::make_unique<MotionTemplateRegistry>(bookmarks_);
  std::unique_ptr<LUTRegistry> luts_ = std::make_unique<LUTRegistry>(bookmarks_);
  QQmlEngine engine_;
  QQuickWindow window_;
  std::unique_ptr<QQuickItem> page_;
};

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  if (argc != 3) return 2;
  fs::create_directories(argv[1]);
  fs::remove(fs::path(argv[1]) / "settings");
  Bench(argv[1], QByteArray(argv[2]).toInt()).run();
  return 0;
}
