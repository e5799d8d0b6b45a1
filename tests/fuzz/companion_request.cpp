#include "companion/CompanionRequest.h"

#include <cstdlib>

// What is read must be one of the few addresses there are, byte for byte.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using orvex::CompanionRequest;
  const QByteArrayView url(data, qsizetype(size));
  if (const auto request = CompanionRequest::parse(url)) {
    const QByteArray only =
        request->verb == CompanionRequest::Verb::FocusPanel
            ? QByteArray("vantrelo-finalcut://focus-panel")
            : "vantrelo-finalcut://timeline-action?action=" + request->action.toUtf8();
    if (url != only) std::abort();
  } else if (request.error().isEmpty()) {
    std::abort();
  }
  return 0;
}
