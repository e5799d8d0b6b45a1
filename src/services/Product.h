#pragma once

#include <QString>

namespace orvex {

/// What this product is called in the vendor's documents.
inline const QString kProduct = QStringLiteral("vantrelo-orvex-finalcut");
/// What this panel's host is called among the targets of a content pack.
inline const QString kPackTarget = QStringLiteral("final-cut");

}  // namespace orvex
