#include "platform/linux/FontRules.h"

#include "base/DescribedError.h"
#include "base/SystemLibrary.h"

#include <fontconfig/fontconfig.h>

namespace orvex {
namespace {

constexpr const char* kRules = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">
<fontconfig>
  <selectfont><rejectfont><glob>*.woff</glob><glob>*.woff2</glob></rejectfont></selectfont>
</fontconfig>)";

}  // namespace

void applyFontRules() try {
  // Only programs with a window have it loaded.
  static SystemLibrary library("fontconfig", 1);
#define ORVEX_FC(name) library.function<decltype(::Fc##name)>("Fc" #name)
  FcConfig* const config = ORVEX_FC(InitLoadConfig)();
  if (config == nullptr) return;
  if (ORVEX_FC(ConfigParseAndLoadFromMemory)(config, reinterpret_cast<const FcChar8*>(kRules),
                                             FcTrue) != FcTrue ||
      // Reads the lists of fonts, and takes the configuration over.
      ORVEX_FC(ConfigSetCurrent)(config) != FcTrue)
    return ORVEX_FC(ConfigDestroy)(config);
  ORVEX_FC(ConfigDestroy)(config);
#undef ORVEX_FC
} catch (const DescribedError&) {
}

}  // namespace orvex
