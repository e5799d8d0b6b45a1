#include "engines/AudioUnitRegistry.h"
#include "engines/FxPlugRegistry.h"
#include "engines/LUTRegistry.h"
#include "engines/MotionTemplateRegistry.h"
#include "host/FinalCutHostAdapter.h"
#include "platform/HostRuntime.h"
#include "platform/hosts/BuiltInHost.h"
#include "shell/OrvexState.h"
#include "shell/VantreloOrvexFinalCutExtensionViewController.h"
#include "support/NoSystem.h"

namespace {

// Everything the controller is handed, recording what it does with it.
struct World final : HostRuntime, RecordedDesktop, DistributedNotifications, PanelViewHost {
  std::shared_ptr<FCPXHost> hostSingleton() override {
    ++hostsAsked;
    return host;
  }

  struct Subscription final : Token {
    explicit Subscription(World& itsWorld) : world(itsWorld) {}
    ~Subscription() override { world.handler = nullptr; }
    World& world;
  };
  std::unique_ptr<Token> subscribe(const QString& name, Handler newHandler) override {
    subscribedTo = name;
    handler = std::move(newHandler);
    return std::make_unique<Subscription>(*this);
  }

  class View final : public HostedView {};
  void createView(QSizeF, const ViewColor&) override {}
  void setPreferredContentSize(QSizeF) override {}
  std::unique_ptr<HostedView> hostRootView(const RootViewObjects& objects) override {
    audio = &objects.audio;
    folders = {&objects.motion, &objects.luts, &objects.fxplug};
    return std::make_unique<View>();
  }
  bool isInWindow() const override { return inWindow; }
  QString windowDescription() const override { return u"window"_s; }
  QSizeF viewSize() const override { return {1040, 780}; }

  std::shared_ptr<FCPXHost> host = std::make_shared<BuiltInHost>();
  // Of the controller that was made last.
  AudioUnitRegistry* audio = nullptr;
  QList<FolderRegistry*> folders;
  int hostsAsked = 0;
  QString subscribedTo;
  Handler handler;
  bool inWindow = true;
};

struct Controller : testing::Test {
  std::unique_ptr<VantreloOrvexFinalCutExtensionViewController> make() {
    auto controller = std::make_unique<VantreloOrvexFinalCutExtensionViewController>(
        VantreloOrvexFinalCutExtensionViewController::Environment{
            world, world, world, world, std::make_shared<ListedAudio>(), folders.store, world});
    controller->loadView();
    controller->viewDidLoad();
    EXPECT_TRUE(waitUntil([&] { return !world.audio->isRefreshing(); }));
    return controller;
  }

  World world;
  NoFolders folders;
};

TEST_F(Controller, TellsWhyAFolderIsRefused) {
  const auto controller = make();
  for (FolderRegistry* registry : std::as_const(world.folders)) {
    const QString reason = registry->summary().title;
    Q_EMIT registry->refused(reason);
    const auto& toast = controller->orvexState().toast();
    EXPECT_EQ(toast.value_or(OrvexToast{}).message, reason);
  }
}

TEST_F(Controller, TakesOnlyFiniteFloatingPointSizesFrom320) {
  const std::tuple<QVariant, QVariant, QSizeF> rows[] = {
      {700.5, 600.0, {700.5, 600}},   {319.9, 900.0, {1040, 900}}, {320.0, {}, {320, 780}},
      {u"1200"_s, true, {1040, 780}}, {1200, 700.0F, {1040, 780}}, {kNan, kInfinity, {1040, 780}},
  };
  for (const auto& [width, height, size] : rows) {
    const auto controller = make();
    EXPECT_EQ(world.subscribedTo, u"com.vantrelo.orvex.finalcut.panel-size");
    QVariantMap userInfo{{u"Width"_s, 500.0}, {u"height"_s, height}};
    if (width.isValid()) userInfo.insert(u"width"_s, width);
    world.handler(userInfo);
    const OrvexState& state = controller->orvexState();
    EXPECT_EQ(QSizeF(state.panelWidth(), state.panelHeight()), size);
  }
  EXPECT_FALSE(world.handler) << "a destroyed controller is still subscribed";
}

TEST_F(Controller, MergesAFloodOfSizesAndTakesTheLast) {
  const auto controller = make();
  const OrvexState& state = controller->orvexState();
  int layouts = 0;
  QObject::connect(&state, &OrvexState::panelWidthChanged, [&] { ++layouts; });
  for (int i = 0; i <= 1000; ++i) world.handler({{u"width"_s, 400.0 + i}});
  EXPECT_TRUE(waitUntil([&] { return state.panelWidth() == 1400; }));
  EXPECT_EQ(layouts, 2);
}

TEST_F(Controller, AsksForFocusThenConnectsAndListsAudioUnits) {
  const auto controller = make();
  const QDateTime before = world.audio->lastRefresh();
  controller->viewDidAppear();
  ASSERT_TRUE(waitUntil([&] { return !world.opened.isEmpty(); }));
  EXPECT_EQ(world.hostsAsked, 0) << "focus is asked for before the host is connected";
  ASSERT_TRUE(waitUntil([&] { return world.hostsAsked > 0; }));
  EXPECT_EQ(world.opened, QStringList{u"vantrelo-finalcut://focus-panel"_s});
  EXPECT_TRUE(controller->orvexState().host().connected);
  EXPECT_TRUE(waitUntil([&] { return world.audio->lastRefresh() > before; }));
}

TEST_F(Controller, ClosedOrDestroyedBeforeItConnectsItDoesNot) {
  const auto closed = make();
  const AudioUnitRegistry& audio = *world.audio;
  const QDateTime before = audio.lastRefresh();
  closed->viewDidAppear();
  world.inWindow = false;
  closed->viewWillDisappear();
  auto destroyed = make();
  destroyed->viewDidAppear();
  destroyed.reset();
  EXPECT_FALSE(waitUntil([&] { return world.hostsAsked > 0; }, 750ms));
  EXPECT_EQ(audio.lastRefresh(), before);
}

TEST_F(Controller, FollowsAHostThatGoesAndComesBackWhileItIsShown) {
  const auto controller = make();
  OrvexState& state = controller->orvexState();
  Q_EMIT world.hostSingletonChanged();
  EXPECT_EQ(world.hostsAsked, 0) << "not shown yet";

  controller->viewDidAppear();
  ASSERT_TRUE(waitUntil([&] { return state.host().connected; }));
  const auto host = std::exchange(world.host, nullptr);
  Q_EMIT world.hostSingletonChanged();
  EXPECT_EQ(state.host(), HostSnapshot::disconnected());
  EXPECT_EQ(state.toast(),
            (OrvexToast{u"Final Cut Pro host proxy bulunamadı."_s, OrvexToast::Kind::error}));

  world.host = host;
  Q_EMIT world.hostSingletonChanged();
  EXPECT_TRUE(state.host().connected);

  controller->viewWillDisappear();
  const int asked = world.hostsAsked;
  Q_EMIT world.hostSingletonChanged();
  EXPECT_EQ(world.hostsAsked, asked) << "hidden again";
}

}  // namespace
