#include "base/Bundle.h"

#include "base/PropertyList.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace orvex {

Bundle::Bundle(const QString& path) : path_(path) {
  QFile file(path + QStringLiteral("/Contents/Info.plist"));
  // A FIFO or device in the place of the list must not block the reader.
  if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) return;
  if (const auto list = PropertyList::parse(file.read(PropertyList::kMaximumBytes + 1)))
    info_ = list->toMap();
}

const Bundle& Bundle::main() {
  static const Bundle bundle(
      QFileInfo(QCoreApplication::applicationDirPath() + QStringLiteral("/../.."))
          .canonicalFilePath());
  return bundle;
}

}  // namespace orvex
