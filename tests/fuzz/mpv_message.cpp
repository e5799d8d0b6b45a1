#include "Fuzz.h"
#include "platform/hosts/MpvMessage.h"

void check(const QByteArray& bytes) {
  std::ignore = orvex::parseMpvMessage(bytes);
}
