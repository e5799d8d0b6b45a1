#include "Fuzz.h"
#include "base/PropertyList.h"

void check(const QByteArray& bytes) {
  std::ignore = orvex::PropertyList::parse(bytes);
}
