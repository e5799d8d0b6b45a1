#pragma once

#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

namespace orvex {

/// A dialog in which the user picks one folder. Main thread only.
class FolderChooser {
 public:
  /// Called once, later: with a local file URL, or with nothing when the user cancelled or no
  /// dialog could be shown.
  using Chosen = std::function<void(std::optional<QUrl>)>;

  virtual ~FolderChooser() = default;

  /// Opens the dialog and returns at once. `title` is what it says, `prompt` the label of the
  /// button that accepts, `start` the folder that it opens at: a local file URL, or empty for
  /// wherever suits. `chosen` is not called once this object is gone.
  virtual void choose(const QString& title, const QString& prompt, const QUrl& start,
                      Chosen chosen) = 0;
};

}  // namespace orvex
