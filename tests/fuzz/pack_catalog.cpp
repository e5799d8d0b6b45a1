#include "base/Json.h"
#include "services/UniversalPackCatalog.h"

#include <cstdlib>

// What is read must read the same when it is written again; choosing loses and makes up nothing.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    const auto catalog = orvex::UniversalPackCatalog::decode(
        QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (orvex::UniversalPackCatalog::decode(catalog.encode()) != catalog) std::abort();
    for (const orvex::UniversalPack& pack : orvex::finalCutPacks(catalog))
      if (!catalog.packs.contains(pack) || finalCutAssets(pack).size() < pack.sharedAssets.size())
        std::abort();
  } catch (const orvex::JsonError&) {
  }
  return 0;
}
