#include "base/Background.h"

#include "base/Threads.h"

#include <QThread>

#include <atomic>
#include <chrono>
#include <mutex>
#include <semaphore>
#include <thread>

namespace orvex {
namespace {

// Work that looks at its stop token ends far sooner; work that hangs in the file system is left
// behind rather than waited for.
constexpr auto kPatience = std::chrono::milliseconds(200);

}  // namespace

// One function on its way. It is shared by the thread that works and the one that waits for it, so
// that either may end first. As an object of the waiting thread it is the address that the working
// one can post to at any time; `owner`, `done` and `progress` belong to the waiting thread alone.
class Background::Run final : public QObject {
 public:
  static std::shared_ptr<Run> make() {
    return {new Run, [](Run* run) {
              if (run->thread() == QThread::currentThread())
                delete run;
              else
                run->deleteLater();
            }};
  }

  // Working thread.
  void report(Progress latest) {
    {
      const std::scoped_lock lock(mutex_);
      latest_ = latest;
      if (std::exchange(posted_, true)) return;
    }
    QMetaObject::invokeMethod(this, &Run::tellProgress, Qt::QueuedConnection);
  }
  // What the work has left is the waiting thread's from here on.
  void finish() {
    {
      const std::scoped_lock lock(mutex_);
      finished_ = true;
    }
    QMetaObject::invokeMethod(this, &Run::tellDone, Qt::QueuedConnection);
  }

  // Waiting thread.
  void abandon() {
    stop.request_stop();
    owner = nullptr;
    done = nullptr;
    progress = nullptr;
  }

  Background* owner = nullptr;
  std::function<void()> done;
  ProgressHandler progress;
  std::stop_source stop;
  // Apart, so that it can be raised after the working thread has let go of the run.
  std::shared_ptr<std::binary_semaphore> ended = std::make_shared<std::binary_semaphore>(0);

 private:
  void tellProgress() {
    Progress latest;
    {
      const std::scoped_lock lock(mutex_);
      latest = latest_;
      posted_ = false;
    }
    if (const auto handler = progress) handler(latest);
  }

  void tellDone() {
    if (owner == nullptr || !isFinished()) return;
    const auto handler = std::exchange(done, nullptr);
    // Before the handler, which may begin the next run or delete the owner; this run lives on until
    // the end of the event that is being handled.
    const std::shared_ptr<Run> self = std::exchange(owner->run_, nullptr);
    abandon();
    handler();
  }

  [[nodiscard]] bool isFinished() {
    const std::scoped_lock lock(mutex_);
    return finished_;
  }

  std::mutex mutex_;
  Progress latest_;
  bool posted_ = false;
  bool finished_ = false;
};

Background::~Background() {
  const std::shared_ptr<Run> run = run_;
  cancel();
  if (run) std::ignore = run->ended->try_acquire_for(kPatience);
}

void Background::cancel() {
  if (const auto run = std::exchange(run_, nullptr)) run->abandon();
}

void Background::start(std::function<void(const WorkControl&)> work, std::function<void()> done,
                       ProgressHandler progress) {
  std::shared_ptr<Run> run = Run::make();
  run->owner = this;
  run->done = std::move(done);
  run->progress = std::move(progress);
  // First, since it can fail: then what was running goes on.
  std::thread([run, ended = run->ended, work = std::move(work), priority = priority_]() mutable {
    if (priority == Priority::GivesWay) giveWay();
    work({run->stop.get_token(), [run](Progress latest) { run->report(latest); }});
    // What the work holds goes here, not later: nobody waits for this thread after it has ended.
    work = nullptr;
    run->finish();
    run.reset();
    ended->release();
  }).detach();
  cancel();
  run_ = run;
}

}  // namespace orvex
