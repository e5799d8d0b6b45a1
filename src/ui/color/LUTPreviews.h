#pragma once

#include "base/Background.h"
#include "ui/color/LUTPreviewWork.h"

#include <QCache>
#include <QList>
#include <QObject>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <vector>

namespace orvex {

class HostPicture;
class PreviewStore;

/// Makes the pictures of LUTs as they are wanted: what is in view before what only waits near it,
/// what was wanted last before older wishes, and of what was wanted at once, the first before the
/// next. What is withdrawn before its turn is not made. Main thread only.
class LUTPreviews : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("One serves all pages.")
  /// The looks are shown on the host's frame, not on a picture of ours.
  Q_PROPERTY(bool fromHost READ isFromHost NOTIFY changed FINAL)

 public:
  /// Shows one picture. The results it is told stay good until the next `changed`.
  class Viewer {
   public:
    virtual ~Viewer() = default;
    virtual void show(const LUTPreviewResult& preview) = 0;
    [[nodiscard]] virtual bool isInView() const = 0;
  };

  /// Pictures held in memory, in bytes.
  static constexpr qsizetype kMaximumBytes = qsizetype{48} * 1024 * 1024;

  /// One processor stays with what is drawn.
  [[nodiscard]] static int defaultWorkers() noexcept;

  /// `store` may be shared with workers that are left behind; `host`, which may be null, outlives
  /// this. A worker is given `batch` pictures at a time at most.
  LUTPreviews(std::shared_ptr<PreviewStore> store, HostPicture* host,
              int workers = defaultWorkers(), qsizetype batch = 8);
  ~LUTPreviews() override;

  [[nodiscard]] const PreviewSource& source() const;
  [[nodiscard]] bool isFromHost() const noexcept { return fromHost_; }

  /// Takes a new frame from the host, without waiting; without one the picture of ours is shown.
  Q_INVOKABLE void refreshSource();
  /// Files may have changed: looks at all of them again when they are wanted again.
  Q_INVOKABLE void forget();

  /// Has the preview of `file` shown by `viewer`: at once when it is there, else later. A viewer
  /// wants one file at a time.
  void want(Viewer* viewer, const QUrl& file);
  /// `viewer` is not told any more.
  void withdraw(Viewer* viewer);

 Q_SIGNALS:
  /// Everything has to be wanted anew.
  void changed();

 private:
  struct Want {
    Viewer* viewer;
    QUrl file;
    // Grows with every turn of the event loop in which something is wanted.
    quint64 turn;
  };
  struct Worker {
    Background background;
    // What it was given, its viewers null where they do not wait any more.
    QList<Want> wants;
  };

  void setSource(const PreviewSource& source, bool fromHost);
  void dispatch();
  [[nodiscard]] Want takeNext();
  void run(Worker& worker);
  void take(Worker& worker, std::vector<LUTPreviewResult> made);

  const std::shared_ptr<PreviewStore> store_;
  HostPicture* const host_;
  const qsizetype batch_;
  mutable PreviewSource source_;
  bool fromHost_ = false;
  Background sourceWork_;
  QCache<QUrl, LUTPreviewResult> made_{kMaximumBytes};
  // Counts the times that everything made before became worthless.
  quint64 generation_ = 0;
  quint64 turn_ = 0;
  bool dispatching_ = false;
  QList<Want> wants_;
  std::vector<std::unique_ptr<Worker>> workers_;
};

}  // namespace orvex
