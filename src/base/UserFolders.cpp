#include "base/UserFolders.h"

#include <QDir>
#include <QStandardPaths>

namespace orvex {
namespace {

// In one spelling, whatever the environment says: paths below it are compared.
QString ownFolder(QStandardPaths::StandardLocation location) {
  return QDir::cleanPath(QStandardPaths::writableLocation(location) +
                         QStringLiteral("/Vantrelo Orvex/FinalCut"));
}

}  // namespace

QString userDataFolder() {
  return ownFolder(QStandardPaths::GenericDataLocation);
}

QString userCacheFolder() {
  return ownFolder(QStandardPaths::GenericCacheLocation);
}

}  // namespace orvex
