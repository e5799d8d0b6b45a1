#include "lut/BridgeExchange.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    std::ignore = orvex::BridgeReply::decode(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
  } catch (const orvex::DescribedError&) {
  }
  return 0;
}
