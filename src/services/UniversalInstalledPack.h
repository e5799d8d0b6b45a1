#pragma once

#include <QList>
#include <QString>
#include <QUrl>

namespace orvex {

/// A content pack installed on this machine.
struct UniversalInstalledPack {
  QString id;
  QString name;
  QString version;
  /// The version folder, which holds the files.
  QUrl directoryURL;
  /// Bare names, in asset order.
  QList<QString> files;

  friend bool operator==(const UniversalInstalledPack&, const UniversalInstalledPack&) = default;
};

}  // namespace orvex
