// The Color page over a library of LUTs in a real window, one line per row: how long it takes to
// open, in which order and how fast the pictures come, and how long a step of scrolling takes to
// its frame while they are being made and once they are there. Arguments: a folder to make data in,
// and how many LUTs (33³ points each) there are to be.
#include "OpenAccess.h"
#include "engines/FolderBookmarkStore.h"
#include "engines/LUTRegistry.h"
#include "lut/CubeLattice.h"
#include "platform/Workspace.h"
#include "shell/OrvexState.h"
#include "ui/OrvexMotion.h"
#include "ui/color/ColorServices.h"
#include "ui/color/LUTPreview.h"

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
#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

Q_IMPORT_QML_PLUGIN(OrvexPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_ColorPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_LibraryPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_PagesPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_SpeedPlugin)

namespace {

using namespace orvex;
namespace fs = std::filesystem;

class NoDesktop final : public Workspace {
 public:
  bool open(const QUrl&) override { return false; }
  void launch(const QUrl&, Launched) override {}
  void reveal(const QUrl&, Revealed) override {}
};

void makeLUTs(const fs::path& root, int count) {
  if (fs::exists(root)) return;
  fs::create_directories(root);
  CubeLattice lattice{.size = 33};
  lattice.points.resize(33 * 33 * 33);
  for (int i = 0; i < count; ++i) {
    for (std::size_t k = 0; k < lattice.points.size(); ++k) {
      const auto axis = [k](std::size_t stride) {
        return static_cast<float>(k / stride % 33) / 32;
      };
      const float turn = static_cast<float>(i) * 0.1F;
      lattice.points[k] = {std::pow(axis(1), 0.7F + 0.3F * std::sin(turn)),
                           std::pow(axis(33), 0.8F + 0.3F * std::cos(turn)),
                           std::pow(axis(1089), 1 + 0.3F * std::sin(2 * turn))};
    }
    QFile file(root / ("LUT " + std::to_string(10000 + i) + ".cube"));
    std::ignore = file.open(QIODevice::WriteOnly);
    file.write(canonicalCube(lattice));
  }
}

void wait(const std::function<bool()>& until) {
  QEventLoop loop;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    if (until()) loop.quit();
  });
  poll.start(5);
  if (!until()) loop.exec();
}

// Of this thread, which also draws: other work on the machine does not count.
double processorMilliseconds() {
  timespec time{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double milliseconds(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

class Bench {
 public:
  Bench(const fs::path& data, int count) : data_(data) {
    makeLUTs(data_ / "luts", count);
    engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
    OrvexMotion::setReduced(true);
    window_.resize(1040, 780);
    window_.show();
    registry_.useFolder(QUrl::fromLocalFile(QString::fromStdString(fs::absolute(data_ / "luts"))));
    wait([this] { return registry_.rootURL() && !registry_.isScanning(); });
  }

  void run() {
    for (const char* cache : {"no pictures kept", "pictures kept"}) {
      QElapsedTimer spent;
      spent.start();
      open();
      const double opened = frame([] {});
      const double shown = milliseconds(spent);
      frame([this] { page_->setProperty("contentY", 560); });
      wait([this] { return allShown(); });
      std::printf("%-24s first frame after %6.1f ms (drawn in %5.1f), all in view after %6.1f ms\n",
                  cache, shown, opened, milliseconds(spent));
      scroll(cache, 45);
      scroll(cache, -45);
      page_.reset();
    }
  }

 private:
  void open() {
    QQmlComponent component(&engine_,
                            QUrl(QStringLiteral("qrc:/qt/qml/Orvex/Pages/OrvexColorView.qml")));
    // Made anew, so that nothing is in memory.
    services_ =
        std::make_unique<ColorServices>(LUTApplyBridge::Environment{desktop_, access_, access_, {}},
                                        nullptr, QString::fromStdString(data_ / "cache"));
    page_.reset(qobject_cast<QQuickItem*>(component.createWithInitialProperties(
        {{QStringLiteral("state"), QVariant::fromValue(&state_)},
         {QStringLiteral("registry"), QVariant::fromValue(&registry_)},
         {QStringLiteral("color"), QVariant::fromValue(services_.get())}})));
    if (!page_) qFatal("%s", qPrintable(component.errorString()));
    page_->setParentItem(window_.contentItem());
    page_->setSize(QSizeF(window_.size()));
  }

  // The pictures of the cards in view; delegates are children of their view for the eye only.
  void collect(const QQuickItem* item, std::vector<const LUTPreview*>& pictures) const {
    const QRectF window({}, QSizeF(window_.size()));
    if (const auto* picture = qobject_cast<const LUTPreview*>(item);
        picture != nullptr && picture->isVisible() &&
        window.intersects(picture->mapRectToScene(picture->boundingRect())))
      pictures.push_back(picture);
    for (const QQuickItem* child : item->childItems()) collect(child, pictures);
  }
  [[nodiscard]] bool allShown() const {
    std::vector<const LUTPreview*> pictures;
    collect(page_.get(), pictures);
    return !pictures.empty() && std::ranges::all_of(pictures, &LUTPreview::isReady);
  }

  // Until the frame that shows it has been drawn.
  double frame(const std::function<void()>& change) {
    bool swapped = false;
    const auto watch =
        QObject::connect(&window_, &QQuickWindow::frameSwapped, [&] { swapped = true; });
    QElapsedTimer spent;
    spent.start();
    // From the event loop, as a wheel's turn is: what it deletes later would wait for one to begin.
    QMetaObject::invokeMethod(
        &window_,
        [&] {
          change();
          window_.update();
        },
        Qt::QueuedConnection);
    while (!swapped) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QObject::disconnect(watch);
    return milliseconds(spent);
  }

  // Steps of the wheel, sixty a second, through the list.
  void scroll(const char* cache, int step) {
    std::vector<double> times;
    std::vector<double> worked;
    int blank = 0;
    const double height = page_->property("contentHeight").toDouble() - window_.height();
    for (int i = 0; i < 600; ++i) {
      const double y =
          std::clamp(page_->property("contentY").toDouble() + step, 0.0, std::max(height, 0.0));
      const double before = processorMilliseconds();
      times.push_back(frame([&] { page_->setProperty("contentY", y); }));
      worked.push_back(processorMilliseconds() - before);
      if (!allShown()) ++blank;
      QElapsedTimer pause;
      pause.start();
      while (milliseconds(pause) + times.back() < 16) QCoreApplication::processEvents();
    }
    const std::string title = std::string(cache) + (step > 0 ? ", down" : ", up");
    print(title, "to its frame", times);
    print(title, "processor time", worked);
    std::printf("%-24s %d of 600 frames with a picture still to come\n", title.c_str(), blank);
  }

  static void print(const std::string& title, const char* what, std::vector<double> times) {
    std::ranges::sort(times);
    std::printf("%-24s %-15s median %5.1f ms, 99 of 100 below %5.1f ms, slowest %5.1f ms\n",
                title.c_str(), what, times[times.size() / 2], times[times.size() * 99 / 100],
                times.back());
  }

  const fs::path data_;
  NoDesktop desktop_;
  OpenAccess access_;
  QSettings settings_{QString::fromStdString(data_ / "settings"), QSettings::IniFormat};
  FolderBookmarkStore bookmarks_{access_, settings_, access_};
  LUTRegistry registry_{bookmarks_};
  OrvexState state_;
  QQmlEngine engine_;
  QQuickWindow window_;
  std::unique_ptr<ColorServices> services_;
  std::unique_ptr<QQuickItem> page_;
};

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication application(argc, argv);
  if (argc != 3) return 2;
  fs::create_directories(argv[1]);
  fs::remove(fs::path(argv[1]) / "settings");
  fs::remove_all(fs::path(argv[1]) / "cache");
  Bench(argv[1], QByteArray(argv[2]).toInt()).run();
  return 0;
}
