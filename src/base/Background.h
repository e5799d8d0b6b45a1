#pragma once

#include <QObject>

#include <concepts>
#include <exception>
#include <expected>
#include <functional>
#include <memory>
#include <stop_token>
#include <type_traits>
#include <utility>

namespace orvex {

/// How far a long piece of work has come, in units of its own.
struct Progress {
  qint64 done = 0;
  /// 0 while it is not known.
  qint64 total = 0;

  friend bool operator==(const Progress&, const Progress&) = default;
};

/// What blocking work that can take long is given: it looks at `stop` often and tells `report` how
/// far it is, from any thread.
struct WorkControl {
  std::stop_token stop{};
  std::function<void(Progress)> report = [](Progress) {};
};

/// Runs blocking functions on a thread of their own and brings their results back to the thread it
/// lives on, through that thread's event loop. One function counts at a time: a newer one
/// supersedes an older one, which is asked to stop and whose result, error and progress are
/// dropped. So does destruction, which waits a moment at most for the function to notice.
class Background final {
 public:
  /// Told on the owner's thread; reports that come faster than they can be told are merged.
  using ProgressHandler = std::function<void(Progress)>;

  /// How the functions' threads stand to those that draw and answer.
  enum class Priority {
    /// Behind them, and behind other programs.
    GivesWay,
    /// Beside them: somebody waits for it.
    Equal,
  };

  Background() = default;
  explicit Background(Priority priority) noexcept : priority_(priority) {}
  Background(const Background&) = delete;
  Background& operator=(const Background&) = delete;
  ~Background();

  /// Calls `work(const WorkControl&)` on another thread, then `done` on this one with what it
  /// returned or threw; with why, where no thread can be had. `work` must own all it uses: it can
  /// outlive this object and its owner.
  template <typename Work, typename Done>
  requires std::invocable<Work, const WorkControl&>
  void run(Work work, Done done, ProgressHandler progress = {}) {
    using Value = std::invoke_result_t<Work, const WorkControl&>;
    using Result = std::expected<Value, std::exception_ptr>;
    const auto result = std::make_shared<Result>(std::unexpected(std::exception_ptr()));
    start(
        [work = std::move(work), result](const WorkControl& control) mutable {
          try {
            if constexpr (std::is_void_v<Value>) {
              work(control);
              *result = Result();
            } else {
              *result = work(control);
            }
          } catch (...) {
            *result = std::unexpected(std::current_exception());
          }
        },
        [done = std::move(done), result](std::exception_ptr notBegun) mutable {
          if (notBegun) *result = std::unexpected(std::move(notBegun));
          done(std::move(*result));
        },
        std::move(progress));
  }

  /// Gives up what is running, if anything is; nobody is told.
  void cancel();
  /// From `run` until just before `done` is called.
  [[nodiscard]] bool isRunning() const noexcept { return run_ != nullptr; }

 private:
  class Run;

  void start(std::function<void(const WorkControl&)> work,
             std::function<void(std::exception_ptr)> done, ProgressHandler progress);

  Priority priority_ = Priority::GivesWay;
  std::shared_ptr<Run> run_;
};

}  // namespace orvex
