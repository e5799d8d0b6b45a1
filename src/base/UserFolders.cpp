#include "base/UserFolders.h"

#include <QStandardPaths>

namespace orvex {
namespace {

QString ownFolder(QStandardPaths::StandardLocation location) {
  return QStandardPaths::writableLocation(location) + QStringLiteral("/Vantrelo Orvex/FinalCut");
}

}  // namespace

QString userDataFolder() {
  return ownFolder(QStandardPaths::GenericDataLocation);
}

QString userCacheFolder() {
  return ownFolder(QStandardPaths::GenericCacheLocation);
}

}  // namespace orvex
