#include "base/Background.h"
#include "base/Threads.h"
#include "support/Wait.h"

#include <atomic>
#include <gmock/gmock.h>
#include <stdexcept>
#include <thread>

using namespace orvex;

namespace {

template <typename T>
using Result = std::expected<T, std::exception_ptr>;

TEST(Background, BringsTheResultToTheOwnersThreadWhichMayEndTheOwner) {
  auto background = std::make_unique<Background>();
  std::unique_ptr<int> result;
  background->run([](const WorkControl&) { return std::make_unique<int>(7); },
                  [&](Result<std::unique_ptr<int>> found) {
                    EXPECT_EQ(QThread::currentThread(), qApp->thread());
                    EXPECT_FALSE(background->isRunning());
                    background.reset();
                    result = std::move(found.value());
                  });
  EXPECT_TRUE(background->isRunning());
  ASSERT_TRUE(waitUntil([&] { return result != nullptr; }));
}

TEST(Background, ANewerRunSupersedesTheOlder) {
  Background background;
  QList<int> results;
  std::atomic<int> stopped = 0;
  for (int i = 0; i < 20; ++i) {
    background.run(
        [i, &stopped](const WorkControl& control) {
          while (i < 19 && !control.stop.stop_requested()) std::this_thread::yield();
          // After it was superseded, this must reach nobody.
          control.report({i, 0});
          ++stopped;
          return i;
        },
        [&](Result<int> found) { results.append(*found); },
        [](Progress progress) { EXPECT_EQ(progress.done, 19); });
  }
  ASSERT_TRUE(waitUntil([&] { return stopped == 20 && !results.isEmpty(); }));
  EXPECT_THAT(results, testing::ElementsAre(19));
}

// A file system that hangs does not look at a stop token.
TEST(Background, DestructionCancelsAndDoesNotWaitForWorkThatHangs) {
  const auto release = std::make_shared<std::atomic<bool>>(false);
  const auto stopped = std::make_shared<std::atomic<bool>>(false);
  {
    Background background;
    background.run(
        [=](const WorkControl& control) {
          while (!*release) std::this_thread::yield();
          control.report({1, 1});
          *stopped = control.stop.stop_requested();
        },
        [](const Result<void>&) { FAIL(); });
  }
  *release = true;
  EXPECT_TRUE(waitUntil([&] { return stopped->load(); }));
}

TEST(Background, MergesProgressAndKeepsTheLoopTicking) {
  Background background;
  QList<qint64> told;
  std::atomic<bool> enough = false;
  qint64 reported = 0;
  background.run(
      [&enough](const WorkControl& control) {
        qint64 i = 0;
        while (!enough) control.report({++i, 0});
        return i;
      },
      [&](const Result<qint64>& found) { reported = *found; },
      [&](Progress progress) { told.append(progress.done); });
  EXPECT_TRUE(waitUntil([&] { return told.size() >= 10; }));
  enough = true;
  ASSERT_TRUE(waitUntil([&] { return reported > 0; }));
  EXPECT_EQ(told.last(), reported);
  EXPECT_LT(told.size(), reported);
}

TEST(Workers, PassAnExceptionOn) {
  EXPECT_THROW(onWorkers([] { throw std::out_of_range("far"); }), std::out_of_range);
}

}  // namespace
