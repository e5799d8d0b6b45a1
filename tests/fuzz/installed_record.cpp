#include "base/Json.h"
#include "services/UniversalInstalledRecord.h"

#include <cstdlib>

// What is read must say the same when it is written and read again.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using Record = orvex::UniversalInstalledRecord;
  try {
    const Record record =
        Record::decode(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    const Record again = Record::decode(record.encode());
    if (again.id != record.id || again.name != record.name || again.version != record.version ||
        again.files != record.files)
      std::abort();
  } catch (const orvex::JsonError&) {
  }
  return 0;
}
