#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

namespace orvex {

/// What lies beside the files of an installed pack.
struct UniversalInstalledRecord {
  QString id;
  QString name;
  QString version;
  QDateTime installedAt;
  /// Bare names, in asset order.
  QList<QString> files;

  /// Throws `JsonError`.
  [[nodiscard]] static UniversalInstalledRecord decode(const QByteArray& json);
  [[nodiscard]] QByteArray encode() const;
};

}  // namespace orvex
