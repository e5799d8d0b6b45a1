#include "platform/PanelEndpoint.h"
#include "platform/Platform.h"
#include "support/PrivateSession.h"
#include "support/Wait.h"

#include <QElapsedTimer>

#include <future>
#include <limits>
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
    performed.append(action);
    return true;
  }
  QString applyLUTOnBuiltInHost(const QString& name) override {
    performed.append(name);
    return u"Açılış"_s;
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
  std::unique_ptr<Platform> platform_ = makePlatform();
  Panel panel_;
};

TEST_F(PanelEndpoints, CallsReachThePanelAndItsAnswersComeBack) {
  ASSERT_TRUE(platform_->exportPanel(panel_));
  EXPECT_TRUE(focus());
  panel_.focusable = false;
  EXPECT_FALSE(focus());
  const QStringList answers = remotely([](PanelEndpoint& endpoint) {
    const bool done = endpoint.performOnBuiltInHost(u"blade-speed"_s);
    return QStringList{endpoint.hostInUse(), endpoint.applyLUTOnBuiltInHost(u"Işık"_s),
                       done ? u"done"_s : QString()};
  });
  EXPECT_EQ(answers, (QStringList{u"builtin:24000/1001"_s, u"Açılış"_s, u"done"_s}));
  EXPECT_EQ(panel_.performed, (QStringList{u"blade-speed"_s, u"Işık"_s}));
}

TEST_F(PanelEndpoints, APanelThatIsNotThereOrHangsIsGivenUp) {
  EXPECT_FALSE(remote_->remotePanel().focusPanel());

  panel_.delay = 2s;
  ASSERT_TRUE(platform_->exportPanel(panel_));
  QElapsedTimer timer;
  timer.start();
  const auto given = remotely([&](PanelEndpoint& endpoint) {
    return endpoint.focusPanel() ? std::numeric_limits<qint64>::max() : timer.elapsed();
  });
  EXPECT_LT(given, 1900);
}

TEST_F(PanelEndpoints, TheFirstPanelKeepsTheNameUntilItGoes) {
  Panel second;
  const auto secondPlatform = makePlatform();
  ASSERT_TRUE(platform_->exportPanel(panel_));
  EXPECT_FALSE(secondPlatform->exportPanel(second));
  EXPECT_TRUE(focus());

  platform_.reset();
  // The bus frees the name when it sees the connection end.
  EXPECT_TRUE(waitUntil([&] { return secondPlatform->exportPanel(second); }));
  EXPECT_TRUE(focus());
  EXPECT_EQ(second.focused, 1);
}

}  // namespace
