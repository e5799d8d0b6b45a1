#pragma once

#include <QUrl>

namespace orvex {

/// Whether it is a whole address of HTTPS, the one scheme that anything is fetched from or opened
/// with.
[[nodiscard]] inline bool isHttpsAddress(const QUrl& url) {
  return url.isValid() && url.scheme() == u"https" && !url.host().isEmpty();
}

}  // namespace orvex
