#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace orvex {

/// A bundle folder (`Name.app`, `Name.fxplug`, …) and its information property list: the file
/// `Info.plist` in its folder `Contents`, else in `Resources`, else in the bundle folder itself.
class Bundle {
 public:
  /// The user's languages, the preferred one first, as language tags.
  [[nodiscard]] static QStringList userLanguages();

  /// The bundle whose folder is `path`. A missing or unreadable information list counts as empty.
  explicit Bundle(const QString& path);
  /// The bundle whose folder is open in `folder` and named `path` for the eye only. Its texts are
  /// read in the first of `languages` that it has, else in the one it was developed in.
  Bundle(const QString& path, int folder, const QStringList& languages = userLanguages());

  /// The bundle that the running program lives in (`<bundle>/Contents/MacOS/<program>`), read once.
  [[nodiscard]] static const Bundle& main();

  [[nodiscard]] const QString& path() const noexcept { return path_; }
  /// The value under `key` with the type it has in the file; invalid when there is none.
  [[nodiscard]] QVariant infoValue(const QString& key) const { return info_.value(key); }
  /// The bundle's localized text for `key`, else `infoValue`.
  [[nodiscard]] QVariant localizedInfoValue(const QString& key) const;

 private:
  void read(int folder, const QStringList& languages);
  void readTexts(int resources, QStringList languages);

  QString path_;
  QVariantMap info_;
  QMap<QString, QString> texts_;
};

}  // namespace orvex
