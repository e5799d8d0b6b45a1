#include "ui/color/LUTPreviews.h"

#include "base/FileUrl.h"
#include "platform/HostPicture.h"
#include "ui/color/GradedPicture.h"
#include "ui/color/PreviewStore.h"
#include "ui/color/TestPicture.h"

#include <QThread>

#include <algorithm>

namespace orvex {

int LUTPreviews::defaultWorkers() noexcept {
  return std::clamp(QThread::idealThreadCount() - 1, 1, 4);
}

LUTPreviews::LUTPreviews(std::shared_ptr<PreviewStore> store, HostPicture* host, int workers)
    : store_(std::move(store)), host_(host) {
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
    if (worker->viewer == viewer) worker->viewer = nullptr;
}

void LUTPreviews::dispatch() {
  for (const auto& worker : workers_) {
    while (!wants_.isEmpty() && !worker->background.isRunning()) {
      const Want next = takeNext();
      // Another viewer may have wanted the same.
      if (const LUTPreviewResult* made = made_.object(next.file))
        next.viewer->show(*made);
      else
        run(*worker, next);
    }
  }
}

LUTPreviews::Want LUTPreviews::takeNext() {
  const auto next = std::ranges::max_element(
      wants_, {}, [](const Want& want) { return std::pair(want.viewer->isInView(), want.turn); });
  return wants_.takeAt(next - wants_.begin());
}

void LUTPreviews::run(Worker& worker, const Want& want) {
  worker.viewer = want.viewer;
  worker.background.run(
      [path = filePath(want.file), source = source(), store = store_](const WorkControl&) {
        return makeLUTPreview(path, source, *store);
      },
      [this, &worker, file = want.file, generation = generation_](auto&& done) {
        Viewer* const viewer = std::exchange(worker.viewer, nullptr);
        // Memory can end even for a picture; then there is none.
        LUTPreviewResult preview =
            done ? *std::move(done)
                 : std::unexpected(CubeError{0, QStringLiteral("Önizleme yapılamadı.")});
        if (generation == generation_) {
          if (viewer != nullptr) viewer->show(preview);
          const qsizetype cost = preview ? preview->sizeInBytes() : 256;
          made_.insert(file, new LUTPreviewResult(std::move(preview)), cost);
        }
        dispatch();
      });
}

}  // namespace orvex
