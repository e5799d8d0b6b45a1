#include "base/Background.h"
#include "base/Threads.h"
#include "support/Wait.h"

#include <QTimer>

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
  QThread* workedOn = nullptr;
  background->run(
      [&workedOn](const WorkControl&) {
        workedOn = QThread::currentThread();
        return std::make_unique<int>(7);
      },
      [&](Result<std::unique_ptr<int>> found) {
        EXPECT_EQ(QThread::currentThread(), qApp->thread());
        EXPECT_FALSE(background->isRunning());
        background.reset();
        result = std::move(found.value());
      });
  EXPECT_TRUE(background->isRunning());
  ASSERT_TRUE(waitUntil([&] { return result != nullptr; }));
  EXPECT_EQ(*result, 7);
  EXPECT_NE(workedOn, qApp->thread());
}

TEST(Background, BringsTheExceptionUnchanged) {
  Background background;
  bool told = false;
  background.run([](const WorkControl&) { throw std::out_of_range("far"); },
                 [&](const Result<void>& found) {
                   EXPECT_THROW(std::rethrow_exception(found.error()), std::out_of_range);
                   told = true;
                 });
  ASSERT_TRUE(waitUntil([&] { return told; }));
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
          while (!control.stop.stop_requested()) std::this_thread::yield();
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

// A file system that hangs does not look at a stop token.
TEST(Background, DestructionCancelsAndDoesNotWaitForWorkThatHangs) {
  struct Work {
    std::atomic<bool> release, stopped, ended;
  };
  const auto work = std::make_shared<Work>();
  {
    Background background;
    background.run(
        [work](const WorkControl& control) {
          while (!work->release) std::this_thread::yield();
          control.report({1, 1});
          work->stopped = control.stop.stop_requested();
          work->ended = true;
        },
        [](const Result<void>&) { FAIL(); });
  }
  EXPECT_FALSE(work->ended);
  work->release = true;
  ASSERT_TRUE(waitUntil([&] { return work->ended.load(); }));
  EXPECT_TRUE(work->stopped);
  QCoreApplication::processEvents();
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
