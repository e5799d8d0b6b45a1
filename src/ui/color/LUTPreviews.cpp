#include "ui/color/LUTPreviews.h"

#include "base/FileUrl.h"
#include "platform/HostPicture.h"
#include "ui/color/GradedPicture.h"
#include "ui/color/PreviewStore.h"
#include "ui/color/TestPicture.h"

#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <new>

namespace orvex {
namespace {

// The main thread comes to a worker's results between two frames at most, so a worker is given more
// than one picture at a time; but no more than it makes in about one frame, as what it was given
// cannot be overtaken by what has come into view since.
constexpr qint64 kBatchMilliseconds = 12;

// Memory can end even for a picture, and so can threads.
LUTPreviewResult noPreview() {
  return std::unexpected(LUTPreviewError{QStringLiteral("Önizleme yapılamadı.")});
}

}  // namespace

int LUTPreviews::defaultWorkers() noexcept {
  return std::clamp(QThread::idealThreadCount() - 1, 1, 4);
}

LUTPreviews::LUTPreviews(std::shared_ptr<PreviewStore> store, HostPicture* host, int workers,
                         qsizetype batch)
    : store_(std::move(store)), host_(host), batch_(batch) {
  for (int i = 0; i < workers; ++i) workers_.push_back(std::make_unique<Worker>());
}

LUTPreviews::~LUTPreviews() = default;

const PreviewSource& LUTPreviews::source() const {
  if (source_.picture.isNull()) source_ = PreviewSource::of(testPicture(kPreviewSize));
  return source_;
}

void LUTPreviews::refreshSource() {
  if (host_ == nullptr) return;
  host_->take([this](const std::optional<QByteArray>& encoded) {
    sourceWork_.run(
        [encoded](const WorkControl&) {
          const QImage frame = encoded ? QImage::fromData(*encoded) : QImage();
          return std::pair(PreviewSource::of(frame.isNull() ? testPicture(kPreviewSize) : frame),
                           !frame.isNull());
        },
        [this](const auto& taken) {
          if (taken) setSource(taken->first, taken->second);
        });
  });
}

void LUTPreviews::setSource(const PreviewSource& source, bool fromHost) {
  if (source.digest == this->source().digest && fromHost == fromHost_) return;
  source_ = source;
  fromHost_ = fromHost;
  forget();
}

void LUTPreviews::forget() {
  ++generation_;
  made_.clear();
  Q_EMIT changed();
}

void LUTPreviews::want(Viewer* viewer, const QUrl& file) {
  withdraw(viewer);
  if (const LUTPreviewResult* made = made_.object(file)) return viewer->show(*made);
  wants_.append({viewer, file, turn_});
  if (std::exchange(dispatching_, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this] {
        dispatching_ = false;
        ++turn_;
        dispatch();
      },
      Qt::QueuedConnection);
}

void LUTPreviews::withdraw(Viewer* viewer) {
  wants_.removeIf([viewer](const Want& want) { return want.viewer == viewer; });
  for (const auto& worker : workers_)
    for (Want& want : worker->wants)
      if (want.viewer == viewer) want.viewer = nullptr;
}

void LUTPreviews::dispatch() {
  auto idle = std::ranges::count_if(
      workers_, [](const auto& worker) { return !worker->background.isRunning(); });
  for (const auto& worker : workers_) {
    if (worker->background.isRunning()) continue;
    // Shared out, so that no worker makes several while another has nothing to do.
    const qsizetype share = std::min(batch_, (wants_.size() + idle - 1) / idle);
    --idle;
    while (!wants_.isEmpty() && worker->wants.size() < share) {
      const Want next = takeNext();
      // Another viewer may have wanted the same.
      if (const LUTPreviewResult* made = made_.object(next.file))
        next.viewer->show(*made);
      else
        worker->wants.append(next);
    }
    if (!worker->wants.isEmpty()) run(*worker);
  }
}

LUTPreviews::Want LUTPreviews::takeNext() {
  const auto next = std::ranges::max_element(
      wants_, {}, [](const Want& want) { return std::pair(want.viewer->isInView(), want.turn); });
  return wants_.takeAt(next - wants_.begin());
}

void LUTPreviews::run(Worker& worker) {
  QList<QByteArray> paths;
  for (const Want& want : worker.wants) paths.append(filePath(want.file));
  worker.background.run(
      [paths, source = source(), store = store_](const WorkControl& control) {
        QElapsedTimer spent;
        spent.start();
        std::vector<LUTPreviewResult> made;
        for (const QByteArray& path : paths) {
          try {
            made.push_back(makeLUTPreview(path, source, *store));
          } catch (const std::bad_alloc&) {
            made.push_back(noPreview());
          }
          if (spent.hasExpired(kBatchMilliseconds) || control.stop.stop_requested()) break;
        }
        return made;
      },
      [this, &worker, generation = generation_](auto&& done) {
        std::vector<LUTPreviewResult> made;
        if (done)
          made = *std::move(done);
        else
          made.assign(static_cast<std::size_t>(worker.wants.size()), noPreview());
        if (generation != generation_) made.clear();
        take(worker, std::move(made));
        dispatch();
      });
}

void LUTPreviews::take(Worker& worker, std::vector<LUTPreviewResult> made) {
  for (LUTPreviewResult& preview : made) {
    const Want want = worker.wants.takeFirst();
    // It may withdraw others.
    if (want.viewer != nullptr) want.viewer->show(preview);
    // What may go well the next time is tried again when it is wanted again.
    if (!preview && !preview.error().isBroken) continue;
    const qsizetype cost = preview ? preview->sizeInBytes() : 256;
    made_.insert(want.file, new LUTPreviewResult(std::move(preview)), cost);
  }
  // The rest waits again.
  for (const Want& want : std::exchange(worker.wants, {}))
    if (want.viewer != nullptr) wants_.append(want);
}

}  // namespace orvex
