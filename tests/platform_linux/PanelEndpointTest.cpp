#include "platform/PanelEndpoint.h"
#include "platform/Platform.h"
#include "support/PrivateSession.h"
#include "support/Wait.h"

#include <QElapsedTimer>

#include <future>
#include <thread>

using namespace orvex;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct Panel final : PanelEndpoint {
  bool focusPanel() override {
    ++focused;
    std::this_thread::sleep_for(delay);
    return focusable;
  }
  QString hostInUse() override { return u"builtin:24000/1001"_s; }
  bool performOnBuiltInHost(const QString& action) override {
    performed = action;
    return action == u"blade-speed";
  }
  QString applyLUTOnBuiltInHost(const QString& name) override {
    performed = name;
    return u"Açılış"_s;
  }

  int focused = 0;
  bool focusable = true;
  std::chrono::seconds delay = 0s;
  QString performed;
};

class PanelEndpoints : public PrivateSession {
 protected:
  // What `call` gives when another process makes it while this one's event loop runs.
  template <typename Call>
  auto remotely(Call call) {
    auto result =
        std::async(std::launch::async, [this, call] { return call(remote_->remotePanel()); });
    EXPECT_TRUE(waitUntil([&] { return result.wait_for(0s) == std::future_status::ready; }));
    return result.get();
  }
  [[nodiscard]] bool focus() {
    return remotely([](PanelEndpoint& panel) { return panel.focusPanel(); });
  }

  const std::unique_ptr<Platform> remote_ = makePlatform();
  std::unique_ptr<Platform> platform_ = makePlatform();
  Panel panel_;
};

TEST_F(PanelEndpoints, CallsReachThePanelAndItsAnswersComeBack) {
  ASSERT_TRUE(platform_->exportPanel(panel_));
  EXPECT_TRUE(focus());
  panel_.focusable = false;
  EXPECT_FALSE(focus());
  EXPECT_EQ(panel_.focused, 2);
  EXPECT_EQ(remotely([](PanelEndpoint& endpoint) { return endpoint.hostInUse(); }),
            u"builtin:24000/1001");
  for (const QString& action : {u"blade-speed"_s, u"ünlü \"'\n"_s}) {
    const bool done =
        remotely([&](PanelEndpoint& endpoint) { return endpoint.performOnBuiltInHost(action); });
    EXPECT_EQ(done, action == u"blade-speed");
    EXPECT_EQ(panel_.performed, action);
  }
  EXPECT_EQ(
      remotely([](PanelEndpoint& endpoint) { return endpoint.applyLUTOnBuiltInHost(u"Işık"_s); }),
      u"Açılış");
  EXPECT_EQ(panel_.performed, u"Işık");
}

TEST_F(PanelEndpoints, APanelThatIsNotThereOrHangsIsGivenUp) {
  QElapsedTimer timer;
  timer.start();
  EXPECT_FALSE(remote_->remotePanel().focusPanel());
  EXPECT_EQ(remote_->remotePanel().hostInUse(), QString());
  EXPECT_FALSE(remote_->remotePanel().performOnBuiltInHost(u"blade-speed"_s));
  EXPECT_LT(timer.elapsed(), 900) << "waited for somebody who is not there";

  panel_.delay = 2s;
  ASSERT_TRUE(platform_->exportPanel(panel_));
  timer.start();
  const auto [focused, elapsed] = remotely([&](PanelEndpoint& endpoint) {
    const bool answer = endpoint.focusPanel();
    return std::pair(answer, timer.elapsed());
  });
  EXPECT_FALSE(focused);
  EXPECT_GE(elapsed, 950);
  EXPECT_LT(elapsed, 1900);
}

TEST_F(PanelEndpoints, TheFirstPanelKeepsTheNameUntilItGoes) {
  Panel second;
  const auto secondPlatform = makePlatform();
  ASSERT_TRUE(platform_->exportPanel(panel_));
  EXPECT_FALSE(secondPlatform->exportPanel(second));
  EXPECT_TRUE(focus());

  platform_.reset();
  EXPECT_FALSE(focus());
  // The bus frees the name when it sees the connection end.
  EXPECT_TRUE(waitUntil([&] { return secondPlatform->exportPanel(second); }));
  EXPECT_TRUE(focus());
  EXPECT_EQ(panel_.focused, 1);
  EXPECT_EQ(second.focused, 1);
}

}  // namespace
