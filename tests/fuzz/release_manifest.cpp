#include "Fuzz.h"
#include "base/Json.h"
#include "services/ReleaseManifest.h"
#include "services/SemanticVersion.h"

// What is read must read the same when it is written again, and its version equal itself.
void check(const QByteArray& bytes) {
  try {
    const auto manifest = orvex::ReleaseManifest::decode(bytes);
    const orvex::SemanticVersion version(manifest.version);
    if (orvex::ReleaseManifest::decode(manifest.encode()) != manifest || version < version)
      std::abort();
  } catch (const orvex::JsonError&) {
  }
}
