#include "base/Background.h"
#include "base/Threads.h"
#include "support/Wait.h"

#include <QThread>
#include <QTimer>

#include <atomic>
#include <gmock/gmock.h>
#include <optional>
#include <stdexcept>
#include <thread>

using namespace orvex;

namespace {

template <typename T>
using Result = std::expected<T, std::exception_ptr>;

// Blocks until it is asked to stop.
int untilStopped(const WorkControl& control) {
  while (!control.stop.stop_requested()) std::this_thread::yield();
  return -1;
}

TEST(Background, BringsTheResultToTheOwnersThread) {
  Background background;
  std::optional<int> result;
  QThread* workedOn = nullptr;
  background.run(
      [&workedOn](const WorkControl&) {
        workedOn = QThread::currentThread();
        return 7;
      },
      [&](Result<int> found) {
        EXPECT_EQ(QThread::currentThread(), qApp->thread());
        EXPECT_FALSE(background.isRunning());
        result = found.value();
      });
  EXPECT_TRUE(background.isRunning());
  ASSERT_TRUE(waitUntil([&] { return result.has_value(); }));
  EXPECT_EQ(result, 7);
  EXPECT_NE(workedOn, qApp->thread());
}

TEST(Background, BringsTheExceptionUnchanged) {
  Background background;
  QString message;
  background.run([](const WorkControl&) -> int { throw std::out_of_range("far"); },
                 [&](const Result<int>& found) {
                   try {
                     std::rethrow_exception(found.error());
                   } catch (const std::out_of_range& error) {
                     message = QString::fromUtf8(error.what());
                   }
                 });
  ASSERT_TRUE(waitUntil([&] { return !message.isEmpty(); }));
  EXPECT_EQ(message, u"far");
}

TEST(Background, RunsWorkWithoutAResultAndResultsThatOnlyMove) {
  Background background;
  bool done = false;
  background.run([](const WorkControl&) {},
                 [&](const Result<void>& found) { done = found.has_value(); });
  ASSERT_TRUE(waitUntil([&] { return done; }));
  std::unique_ptr<int> moved;
  background.run([](const WorkControl&) { return std::make_unique<int>(3); },
                 [&](Result<std::unique_ptr<int>> found) { moved = std::move(*found); });
  ASSERT_TRUE(waitUntil([&] { return moved != nullptr; }));
  EXPECT_EQ(*moved, 3);
}

TEST(Background, ANewerRunSupersedesTheOlder) {
  Background background;
  QList<int> results;
  std::atomic<int> stopped = 0;
  for (int i = 0; i < 20; ++i) {
    background.run(
        [i, &stopped](const WorkControl& control) {
          if (i == 19) return i;
          // Also after it was superseded: that must reach nobody.
          control.report({1, 1});
          untilStopped(control);
          control.report({2, 2});
          ++stopped;
          return i;
        },
        [&](Result<int> found) { results.append(*found); },
        [i](Progress progress) { EXPECT_TRUE(i == 19 || progress.done == 1); });
  }
  ASSERT_TRUE(waitUntil([&] { return stopped == 19 && !results.isEmpty(); }));
  QCoreApplication::processEvents();
  EXPECT_THAT(results, testing::ElementsAre(19));
}

TEST(Background, DestructionCancels) {
  std::atomic<bool> ended = false;
  bool told = false;
  {
    Background background;
    background.run(
        [&ended](const WorkControl& control) {
          untilStopped(control);
          ended = true;
          return 0;
        },
        [&](const Result<int>&) { told = true; });
  }
  ASSERT_TRUE(waitUntil([&] { return ended.load(); }));
  QCoreApplication::processEvents();
  EXPECT_FALSE(told);
}

// A file system that hangs does not look at a stop token.
TEST(Background, DestructionDoesNotWaitForWorkThatHangs) {
  const auto release = std::make_shared<std::atomic<bool>>(false);
  const auto ended = std::make_shared<std::atomic<bool>>(false);
  {
    Background background;
    background.run(
        [release, ended](const WorkControl& control) {
          while (!*release) std::this_thread::yield();
          control.report({1, 1});
          *ended = true;
        },
        [](const Result<void>&) { FAIL(); });
  }
  EXPECT_FALSE(*ended);
  *release = true;
  ASSERT_TRUE(waitUntil([&] { return ended->load(); }));
}

TEST(Background, TheOwnerMayGoWhileItIsTold) {
  auto background = std::make_unique<Background>();
  bool told = false;
  background->run([](const WorkControl&) { return 1; },
                  [&](const Result<int>&) {
                    background.reset();
                    told = true;
                  });
  ASSERT_TRUE(waitUntil([&] { return told; }));
}

TEST(Background, MergesProgressAndKeepsTheLoopTicking) {
  Background background;
  QList<Progress> told;
  int ticks = 0;
  QTimer ticker;
  QObject::connect(&ticker, &QTimer::timeout, &ticker, [&] { ++ticks; });
  ticker.start(0);
  std::atomic<bool> enough = false;
  bool done = false;
  background.run(
      [&enough](const WorkControl& control) {
        qint64 i = 0;
        while (!enough) control.report({++i, 0});
        return i;
      },
      [&](const Result<qint64>& found) {
        done = true;
        EXPECT_EQ(told.last().done, *found);
        EXPECT_LT(told.size(), *found);
      },
      [&](Progress progress) {
        EXPECT_TRUE(told.isEmpty() || told.last().done < progress.done);
        told.append(progress);
      });
  EXPECT_TRUE(waitUntil([&] { return ticks >= 100 && told.size() >= 10; }));
  enough = true;
  ASSERT_TRUE(waitUntil([&] { return done; }));
}

TEST(Workers, ShareTheWorkAndPassAnExceptionOn) {
  std::atomic<int> next = 0;
  onWorkers([&] {
    while (next.fetch_add(1) < 1000) {
    }
  });
  EXPECT_GE(next, 1000 + workerCount());
  EXPECT_THROW(onWorkers([] { throw std::out_of_range("far"); }), std::out_of_range);
}

}  // namespace
