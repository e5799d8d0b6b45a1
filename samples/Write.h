#pragma once

#include "base/DescribedError.h"
#include "base/NewFile.h"

#include <QFile>

namespace orvex::samples {

/// Writes a file of the samples. Throws `DescribedError`.
inline void writeFile(const QString& path, const QByteArray& bytes) {
  if (!replaceFile(QFile::encodeName(path), bytes))
    throw DescribedError(
        QStringLiteral("%1 yazılamadı. Klasörün izinlerini ve diskteki yeri denetle.").arg(path));
}

}  // namespace orvex::samples
