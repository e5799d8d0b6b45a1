#include "Fuzz.h"
#include "base/Json.h"
#include "services/UniversalInstalledRecord.h"

// What is read must say the same when it is written and read again.
void check(const QByteArray& bytes) {
  using Record = orvex::UniversalInstalledRecord;
  try {
    const Record record = Record::decode(bytes);
    const Record again = Record::decode(record.encode());
    if (again.id != record.id || again.name != record.name || again.version != record.version ||
        again.files != record.files)
      std::abort();
  } catch (const orvex::JsonError&) {
  }
}
