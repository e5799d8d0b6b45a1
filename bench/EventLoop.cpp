// The whole panel in its window while something is done to it; prints how long its event loop stood
// still and how much of it arrived. `bench/eventloop.py` makes the surroundings of each. Arguments:
// what is done; with `send`, this is the other program, which posts panel sizes for so many
// seconds.
#include "Gap.h"
#include "host/FinalCutHostAdapter.h"
#include "runtime/PanelOptions.h"
#include "runtime/PanelRuntime.h"
#include "shell/OrvexConfig.h"
#include "shell/OrvexState.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QEventLoop>
#include <QGuiApplication>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>

#include <cstdio>
#include <thread>

Q_IMPORT_QML_PLUGIN(OrvexPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_ColorPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_LibraryPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_PagesPlugin)
Q_IMPORT_QML_PLUGIN(Orvex_SpeedPlugin)

namespace {

using namespace orvex;
using namespace std::chrono_literals;

constexpr auto kFlood = 5s;

void wait(const std::function<bool()>& until, std::chrono::milliseconds longest = 20s) {
  QElapsedTimer spent;
  spent.start();
  QEventLoop loop;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    if (until()) return loop.quit();
    if (spent.hasExpired(longest.count())) qFatal("nothing happens");
  });
  poll.start(10);
  loop.exec();
}

void rest(std::chrono::milliseconds time) {
  QElapsedTimer spent;
  spent.start();
  wait([&] { return spent.hasExpired(time.count()); }, time * 10);
}

// What the panel's root item was given under `name`.
template <typename T>
T& given(const char* name) {
  for (QWindow* window : QGuiApplication::topLevelWindows())
    if (auto* quick = qobject_cast<QQuickWindow*>(window))
      for (const QQuickItem* area : quick->contentItem()->childItems())
        for (const QQuickItem* item : area->childItems())
          if (T* found = qobject_cast<T*>(item->property(name).value<QObject*>())) return *found;
  qFatal("no %s", name);
}

void print(const char* title, Gap& gap, const QByteArray& what) {
  std::printf("%-44s longest gap %5.1f ms, its own %5.1f ms, %s\n", title, gap.longest(), gap.own(),
              what.constData());
}

// The install of the first pack of the catalog, up to where the server begins to hold it up.
PackActivity hangingInstall(OrvexState& state) {
  state.refreshPacks(true);
  wait([&] { return !state.packs().isEmpty(); });
  const UniversalPack pack = state.packs().first();
  state.installPack(pack);
  wait([&] { return state.packActivity(pack.id)->progress.done > 0; });
  rest(3s);
  return state.packActivity(pack.id).value();
}

void hang(OrvexState& state) {
  Gap gap;
  const PackActivity activity = hangingInstall(state);
  QElapsedTimer ending;
  ending.start();
  state.cancelInstall(state.packs().first());
  wait([&] { return state.packBusyIDs().isEmpty(); });
  print("an install hangs and is cancelled", gap,
        QByteArray::number(activity.progress.done) + " of " +
            QByteArray::number(activity.progress.total) + " bytes came, cancelled in " +
            QByteArray::number(static_cast<double>(ending.nsecsElapsed()) / 1e6, 'f', 1) + " ms");
}

template <typename Object, typename Signal>
void flood(const char* title, Object& object, Signal signal, std::chrono::milliseconds time) {
  int changes = 0;
  const auto counting = QObject::connect(&object, signal, [&] { ++changes; });
  Gap gap;
  rest(time);
  QObject::disconnect(counting);
  print(title, gap, QByteArray::number(changes) + " changes reached the state");
}

int send(int seconds) {
  const auto bus = QDBusConnection::sessionBus();
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
  int sent = 0;
  for (auto next = std::chrono::steady_clock::now(); next < end; next += 5ms) {
    std::this_thread::sleep_until(next);
    for (int i = 0; i < 50; ++i, ++sent) {
      auto message = QDBusMessage::createSignal(
          QStringLiteral("/com/vantrelo/orvex/finalcut"),
          QStringLiteral("com.vantrelo.orvex.DistributedNotifications"), QStringLiteral("Posted"));
      message << QStringLiteral("com.vantrelo.orvex.finalcut.panel-size")
              << QVariantMap{{QStringLiteral("width"), 600.0 + sent % 200}};
      bus.send(message);
    }
  }
  return 0;
}

// Returns when the panel is gone.
void run(const QByteArray& what) {
  PanelOptions options;
  options.page = OrvexPage::updates;
  const auto host = HostChoice::parse(qEnvironmentVariable("ORVEX_HOST"));
  if (!host) qFatal("%s", qPrintable(host.error()));
  options.host = *host;
  auto panel = std::make_unique<PanelRuntime>(options);
  panel->show();
  auto& state = given<OrvexState>("state");
  auto& adapter = given<FinalCutHostAdapter>("hostAdapter");
  rest(3s);
  if (what == "still") {
    Gap gap;
    rest(kFlood);
    print("nothing is done", gap, "");
  } else if (what == "hang") {
    hang(state);
  } else if (what == "close") {
    std::ignore = hangingInstall(state);
    QElapsedTimer closing;
    closing.start();
    for (QWindow* window : QGuiApplication::topLevelWindows()) window->close();
    panel.reset();
    std::printf("%-44s closed in %.1f ms\n", "closed while an install hangs",
                static_cast<double>(closing.nsecsElapsed()) / 1e6);
  } else if (what == "player") {
    state.setActivePage(OrvexPage::timeline);
    rest(1s);
    flood("a player reports as fast as it can", state, &OrvexState::hostChanged, kFlood);
  } else if (what == "callbacks") {
    std::atomic<qint64> calls = 0;
    const std::jthread caller([&](const std::stop_token& stop) {
      for (; !stop.stop_requested(); ++calls) adapter.playheadTimeChanged();
    });
    flood("a host calls back without a pause", state, &OrvexState::hostChanged, kFlood);
    std::printf("%-44s %lld calls\n", "", static_cast<long long>(calls));
  } else if (what == "sizes") {
    flood("10,000 panel sizes a second", state, &OrvexState::panelWidthChanged, kFlood);
  } else if (what == "toasts") {
    QTimer burst;
    int shown = 0;
    QObject::connect(&burst, &QTimer::timeout, [&] {
      for (int i = 0; i < 5; ++i)
        state.showToast(QStringLiteral("Mesaj %1 geldi.").arg(++shown), OrvexToast::Kind::info, 3);
    });
    burst.start(1);
    flood("five toasts a millisecond", state, &OrvexState::toastChanged, kFlood);
  } else {
    qFatal("no such thing: %s", what.constData());
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && QByteArray(argv[1]) == "send") {
    const QCoreApplication application(argc, argv);
    return send(QByteArray(argv[2]).toInt());
  }
  if (argc != 2) return 2;
  if (const auto used = OrvexConfig::useService(qEnvironmentVariable("ORVEX_SERVICE")); !used)
    qFatal("%s", qPrintable(used.error()));
  const QGuiApplication application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QGuiApplication::setFont(QFont(QStringLiteral("Inter")));
  run(argv[1]);
  return 0;
}
