#include "platform/linux/lv2/BundleSearch.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace orvex {
namespace fs = std::filesystem;

QList<QByteArray> lv2Bundles(const QByteArray& searchPath) {
  QList<QByteArray> bundles;
  for (QByteArray folder : searchPath.split(':')) {
    if (folder.startsWith("~/")) folder.replace(0, 1, qgetenv("HOME"));
    std::error_code error;
    std::vector<fs::path> found;
    for (fs::directory_iterator entry(folder.toStdString(), error), end; !error && entry != end;
         entry.increment(error)) {
      std::error_code missing;
      // Anything but a regular file could block whoever opens it.
      if (!fs::is_regular_file(entry->path() / "manifest.ttl", missing)) continue;
      if (auto path = fs::canonical(entry->path(), missing); !missing)
        found.push_back(std::move(path));
    }
    std::ranges::sort(found);
    for (const fs::path& path : found) {
      const auto bundle = QByteArray::fromStdString(path.string());
      if (!bundles.contains(bundle)) bundles.append(bundle);
    }
  }
  return bundles;
}

QByteArray lv2SearchPath() {
  if (const QByteArray path = qgetenv("LV2_PATH"); !path.isEmpty()) return path;
  return "~/.lv2:/usr/local/lib/lv2:/usr/lib/" ORVEX_LIBRARY_ARCHITECTURE
         "/lv2:/usr/lib64/lv2:/usr/lib/lv2";
}

}  // namespace orvex
