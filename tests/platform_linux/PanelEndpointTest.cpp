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

class Panel final : public PanelEndpoint {
 public:
  bool focusPanel() override {
    ++focused;
    std::this_thread::sleep_for(delay);
    return focusable;
  }
  QString hostInUse() override { return u"builtin:24000/1001"_s; }
  bool performOnBuiltInHost(const QString& action) override {
    performed.append(action);
    return action == u"blade-speed";
  }

  int focused = 0;
  bool focusable = true;
  std::chrono::seconds delay = 0s;
  QStringList performed;
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
};

TEST_F(PanelEndpoints, CallsReachThePanelAndItsAnswersComeBack) {
  Panel panel;
  const auto platform = makePlatform();
  ASSERT_TRUE(platform->exportPanel(panel));
  EXPECT_TRUE(focus());
  panel.focusable = false;
  EXPECT_FALSE(focus());
  EXPECT_EQ(panel.focused, 2);
  EXPECT_EQ(remotely([](PanelEndpoint& endpoint) { return endpoint.hostInUse(); }),
            u"builtin:24000/1001");
  const QString odd = u"ünlü \"'\n"_s;
  for (const QString& action : {u"blade-speed"_s, odd}) {
    EXPECT_EQ(
        remotely([&](PanelEndpoint& endpoint) { return endpoint.performOnBuiltInHost(action); }),
        action != odd);
    EXPECT_EQ(panel.performed.last(), action);
  }
}

TEST_F(PanelEndpoints, WithoutAPanelCallsSaySoAtOnce) {
  QElapsedTimer timer;
  timer.start();
  PanelEndpoint& none = remote_->remotePanel();
  EXPECT_FALSE(none.focusPanel());
  EXPECT_EQ(none.hostInUse(), QString());
  EXPECT_FALSE(none.performOnBuiltInHost(u"blade-speed"_s));
  EXPECT_LT(timer.elapsed(), 900) << "waited for somebody who is not there";
}

TEST_F(PanelEndpoints, TheFirstPanelKeepsTheNameUntilItGoes) {
  Panel first;
  Panel second;
  auto firstPlatform = makePlatform();
  const auto secondPlatform = makePlatform();
  ASSERT_TRUE(firstPlatform->exportPanel(first));
  EXPECT_FALSE(secondPlatform->exportPanel(second));
  EXPECT_TRUE(focus());
  EXPECT_EQ(first.focused, 1);

  firstPlatform.reset();
  EXPECT_FALSE(focus());
  // The bus frees the name when it sees the connection end.
  EXPECT_TRUE(waitUntil([&] { return secondPlatform->exportPanel(second); }));
  EXPECT_TRUE(focus());
  EXPECT_EQ(first.focused, 1);
  EXPECT_EQ(second.focused, 1);
}

TEST_F(PanelEndpoints, APanelThatHangsIsGivenUpAfterASecond) {
  Panel panel;
  panel.delay = 2s;
  const auto platform = makePlatform();
  ASSERT_TRUE(platform->exportPanel(panel));
  QElapsedTimer timer;
  timer.start();
  qint64 elapsed = 0;
  EXPECT_FALSE(remotely([&](PanelEndpoint& endpoint) {
    const bool focused = endpoint.focusPanel();
    elapsed = timer.elapsed();
    return focused;
  }));
  EXPECT_GE(elapsed, 950);
  EXPECT_LT(elapsed, 1900);
}

}  // namespace
