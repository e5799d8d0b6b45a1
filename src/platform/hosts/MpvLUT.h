#pragma once

#include <QObject>
#include <QString>

#include <expected>
#include <functional>

namespace orvex {

/// A LUT over the picture of a running mpv. Main thread only.
class MpvLUT final : public QObject {
  Q_OBJECT

 public:
  /// The label of the filter among those of the player.
  static constexpr QStringView kLabel = u"orvex-lut";

  /// What was done, or why nothing was, as a sentence in Turkish.
  using Done = std::function<void(std::expected<QString, QString>)>;

  explicit MpvLUT(const QString& socketPath);

  /// Puts the LUT of the `.cube` file at `path` over the whole stream, in place of the one before,
  /// and makes sure that the player uses it; `name` is what people know it by. The player reads the
  /// file again whenever it rebuilds its filters, so it has to stay. Calls `done` once, within five
  /// seconds, possibly before this returns; not at all if this object is destroyed first.
  void apply(const QString& path, const QString& name, Done done);

 private:
  QString socketPath_;
};

}  // namespace orvex
