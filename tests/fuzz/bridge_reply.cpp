#include "Fuzz.h"
#include "lut/BridgeExchange.h"

void check(const QByteArray& bytes) {
  try {
    std::ignore = orvex::BridgeReply::decode(bytes);
  } catch (const orvex::DescribedError&) {
  }
}
