#pragma once

#include <QString>

#include <expected>
#include <functional>

class QUrl;

namespace orvex {

/// What the desktop does for the panel. Main thread only.
class Workspace {
 public:
  /// The error, in Turkish, says why the application was not started.
  using Launched = std::function<void(const std::expected<void, QString>&)>;
  /// The error, in Turkish, says why the file could not be shown.
  using Revealed = std::function<void(const std::expected<void, QString>&)>;

  virtual ~Workspace() = default;

  /// Hands `url` to the application registered for its scheme. Returns whether the hand-over
  /// worked, not what came of it; does not wait for the application.
  [[nodiscard]] virtual bool open(const QUrl& url) = 0;

  /// Starts a new instance of the application whose bundle is `application`, a local file URL, even
  /// if one runs already: without arguments, in the background, not remembered as recently used.
  /// `launched` is called once, later, on the main thread: when the program has begun to run or
  /// could not be started.
  virtual void launch(const QUrl& application, Launched launched) = 0;

  /// Shows the file or folder `file`, a local file URL, selected in the file manager. Returns at
  /// once; `revealed` is called once, later, on the main thread, but not after this object is gone.
  virtual void reveal(const QUrl& file, Revealed revealed) = 0;
};

}  // namespace orvex
