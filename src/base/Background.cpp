#include "base/Background.h"

#include "base/Threads.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <atomic>
#include <chrono>
#include <mutex>
#include <semaphore>
#include <system_error>
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
// The event that is posted carries nothing: all that goes from thread to thread goes under
// `mutex_`.
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
    post();
  }
  // What the work has left is the waiting thread's from here on.
  void finish() {
    {
      const std::scoped_lock lock(mutex_);
      finished_ = true;
    }
    post();
  }

  // Waiting thread.
  void abandon() {
    stop.request_stop();
    owner = nullptr;
    done = nullptr;
    progress = nullptr;
  }

  Background* owner = nullptr;
  std::function<void(std::exception_ptr)> done;
  // Why the work could not begin.
  std::exception_ptr notBegun;
  ProgressHandler progress;
  std::stop_source stop;
  // Apart, so that it can be raised after the working thread has let go of the run.
  std::shared_ptr<std::binary_semaphore> ended = std::make_shared<std::binary_semaphore>(0);

 protected:
  void customEvent(QEvent* /*event*/) override {
    // The handlers may begin the next run or delete the owner.
    const std::shared_ptr<Run> self = owner != nullptr ? owner->run_ : nullptr;
    Progress latest;
    bool reported = false;
    bool finished = false;
    {
      const std::scoped_lock lock(mutex_);
      latest = latest_;
      reported = std::exchange(posted_, false);
      finished = finished_;
    }
    if (const auto handler = progress; handler && reported) handler(latest);
    if (owner == nullptr || !finished) return;
    const auto handler = std::exchange(done, nullptr);
    owner->run_ = nullptr;
    abandon();
    handler(notBegun);
  }

 private:
  ~Run() override {
    // After the last time that the working thread had it.
    const std::scoped_lock lock(mutex_);
  }

  void post() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }

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

void Background::start(std::function<void(const WorkControl&)> work,
                       std::function<void(std::exception_ptr)> done, ProgressHandler progress) {
  cancel();
  run_ = Run::make();
  run_->owner = this;
  run_->done = std::move(done);
  run_->progress = std::move(progress);
  try {
    std::thread([run = run_, ended = run_->ended, work = std::move(work),
                 priority = priority_]() mutable {
      if (priority == Priority::GivesWay) giveWay();
      work({run->stop.get_token(), [run](Progress latest) { run->report(latest); }});
      // What the work holds goes here, not later: nobody waits for this thread after it has ended.
      work = nullptr;
      run->finish();
      run.reset();
      ended->release();
    }).detach();
  } catch (const std::system_error&) {
    run_->notBegun = std::current_exception();
    run_->ended->release();
    run_->finish();
  }
}

}  // namespace orvex
