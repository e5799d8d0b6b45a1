#pragma once

#include <QString>
#include <QVariantMap>

namespace orvex {

/// A bundle folder (`Name.app`, `Name.appex`, …) and its information property list.
class Bundle {
 public:
  /// The bundle whose folder is `path`. A missing or unreadable information list counts as empty.
  explicit Bundle(const QString& path);

  /// The bundle that the running program lives in (`<bundle>/Contents/MacOS/<program>`), read once.
  [[nodiscard]] static const Bundle& main();

  [[nodiscard]] const QString& path() const noexcept { return path_; }
  /// The value under `key` with the type it has in the file; invalid when there is none.
  [[nodiscard]] QVariant infoValue(const QString& key) const { return info_.value(key); }

 private:
  QString path_;
  QVariantMap info_;
};

}  // namespace orvex
