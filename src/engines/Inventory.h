#pragma once

#include "base/Background.h"
#include "base/DescribedError.h"
#include "base/SearchIndex.h"
#include "base/UserFolders.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace orvex {

/// What a scan of a folder found.
template <typename Item>
struct Inventory {
  /// In the order in which they are shown.
  QList<Item> items{};
  /// Finds items by their texts; positions are those in `items`.
  SearchIndex search = SearchIndex();
  /// Folders below the root, or the root itself, that could not be read.
  qint64 skippedFolders = 0;
};

/// How the blocking scans work.
struct ScanOptions {
  /// The language of the order and the search.
  QLocale locale = Collation::userLocale();
  /// Where to keep what need not be read again the next time.
  QString cacheFolder = userCacheFolder();
};

}  // namespace orvex
