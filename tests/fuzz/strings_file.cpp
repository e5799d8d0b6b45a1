#include "Fuzz.h"
#include "base/StringsFile.h"

void check(const QByteArray& bytes) {
  std::ignore = orvex::StringsFile::parse(bytes);
}
