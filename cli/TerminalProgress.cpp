#include "TerminalProgress.h"

#include "Output.h"
#include "base/Text.h"

#include <QElapsedTimer>
#include <QString>

#include <algorithm>
#include <cstdio>
#include <mutex>
#include <sys/ioctl.h>
#include <unistd.h>

namespace orvex {
namespace {

// Often enough for the eye.
constexpr qint64 kShowEveryMs = 100;
constexpr int kBarWidth = 30;

int columns() {
  winsize size{};
  return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

QString itemsLine(Progress progress) {
  return progress.total > 0 ? QStringLiteral("%1 / %2").arg(progress.done).arg(progress.total)
                            : QString::number(progress.done);
}

QString bytesLine(Progress progress) {
  if (progress.total <= 0) return bytesText(progress.done);
  const double part =
      std::clamp(static_cast<double>(progress.done) / static_cast<double>(progress.total), 0., 1.);
  const QString numbers =
      u'%' + QString::number(static_cast<int>(100 * part)) +
      QStringLiteral("  %1 / %2").arg(bytesText(progress.done), bytesText(progress.total));
  // A line that wraps could not be taken back.
  const int width = std::clamp(columns() - static_cast<int>(numbers.size()) - 3, 0, kBarWidth);
  const int full = static_cast<int>(part * width);
  return QString(full, u'█') + QString(width - full, u'░') + QStringLiteral("  ") + numbers;
}

}  // namespace

class TerminalProgress::State {
 public:
  explicit State(Unit unit) : unit_(unit) {}

  void show(Progress progress) {
    const std::scoped_lock lock(mutex_);
    if (timer_.isValid() && timer_.elapsed() < kShowEveryMs) return;
    timer_.start();
    std::fprintf(stderr, "\r%s\033[K",
                 qUtf8Printable(unit_ == Unit::Bytes ? bytesLine(progress) : itemsLine(progress)));
    shown_ = true;
  }

  ~State() {
    if (shown_) std::fputs("\r\033[K", stderr);
  }

 private:
  const Unit unit_;
  std::mutex mutex_;
  QElapsedTimer timer_;
  bool shown_ = false;
};

TerminalProgress::TerminalProgress(Unit unit)
    : state_(::isatty(STDERR_FILENO) != 0 ? std::make_unique<State>(unit) : nullptr) {}

TerminalProgress::~TerminalProgress() = default;

void TerminalProgress::show(Progress progress) {
  if (state_) state_->show(progress);
}

}  // namespace orvex
