#include "Fuzz.h"
#include "companion/CompanionRequest.h"

// What is read must be one of the few addresses there are, byte for byte.
void check(const QByteArray& bytes) {
  using orvex::CompanionRequest;
  if (const auto request = CompanionRequest::parse(bytes)) {
    const QByteArray only =
        request->verb == CompanionRequest::Verb::FocusPanel
            ? QByteArray("vantrelo-finalcut://focus-panel")
            : "vantrelo-finalcut://timeline-action?action=" + request->action.toUtf8();
    if (bytes != only) std::abort();
  } else if (request.error().isEmpty()) {
    std::abort();
  }
}
