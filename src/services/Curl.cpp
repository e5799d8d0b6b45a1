#include "services/Curl.h"

namespace orvex {

Curl::Curl() {
  global_init(CURL_GLOBAL_DEFAULT);
}

const Curl& Curl::loaded() {
  // Never unloaded: threads that were left behind in a lookup of a name may still be in it.
  static const Curl& curl = *new Curl;
  return curl;
}

}  // namespace orvex
