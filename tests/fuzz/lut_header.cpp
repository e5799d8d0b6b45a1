#include "Fuzz.h"
#include "engines/LUTHeader.h"

void check(const QByteArray& bytes) {
  std::ignore = orvex::LUTHeader::parse(bytes);
}
