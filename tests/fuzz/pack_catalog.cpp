#include "Fuzz.h"
#include "base/Json.h"
#include "services/UniversalPackCatalog.h"

// What is read must read the same when it is written again; choosing loses and makes up nothing.
void check(const QByteArray& bytes) {
  try {
    const auto catalog = orvex::UniversalPackCatalog::decode(bytes);
    if (orvex::UniversalPackCatalog::decode(catalog.encode()) != catalog) std::abort();
    for (const orvex::UniversalPack& pack : orvex::finalCutPacks(catalog))
      if (!catalog.packs.contains(pack) || finalCutAssets(pack).size() < pack.sharedAssets.size())
        std::abort();
  } catch (const orvex::JsonError&) {
  }
}
