#pragma once

#include <QString>

namespace orvex {

/// Where the panel and its companion keep what lasts: "Vantrelo Orvex/FinalCut" in the folder in
/// which programs keep the user's data. An absolute path of what need not be there, in
/// one spelling.
[[nodiscard]] QString userDataFolder();
/// The same for what can be made again.
[[nodiscard]] QString userCacheFolder();

}  // namespace orvex
