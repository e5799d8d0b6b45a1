#include "base/Json.h"
#include "services/ReleaseManifest.h"
#include "services/SemanticVersion.h"

#include <cstdlib>

// What is read must read the same when it is written again, and its version equal itself.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    const auto manifest = orvex::ReleaseManifest::decode(
        QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    const orvex::SemanticVersion version(manifest.version);
    if (orvex::ReleaseManifest::decode(manifest.encode()) != manifest || version < version)
      std::abort();
  } catch (const orvex::JsonError&) {
  }
  return 0;
}
