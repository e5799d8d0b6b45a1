#pragma once

#include <QString>

namespace orvex {

/// Announces one warning that holds `fragment`. Unannounced ones, and announced ones that do not
/// come before the test ends, fail the test.
void expectWarning(const QString& fragment);

}  // namespace orvex
