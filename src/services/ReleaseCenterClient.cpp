#include "services/ReleaseCenterClient.h"

#include "services/JsonRequest.h"
#include "services/Product.h"

namespace orvex {
namespace {

using namespace std::chrono_literals;

constexpr auto kTimeout = 15s;
// A manifest is a page of text at most.
constexpr qint64 kMaximumBytes = qint64{1024} * 1024;

QString describe(ReleaseCenterError::Kind kind, int code) {
  switch (kind) {
    case ReleaseCenterError::Kind::Http:
      return QStringLiteral("Release Center HTTP %1").arg(code);
    case ReleaseCenterError::Kind::InvalidResponse:
      return QStringLiteral("Release manifest cevabı geçersiz.");
    case ReleaseCenterError::Kind::InvalidProduct:
      return QStringLiteral("Manifest farklı bir Vantrelo ürünü için.");
  }
  Q_UNREACHABLE();
}

}  // namespace

ReleaseCenterError::ReleaseCenterError(Kind kind, int code)
    : DescribedError(describe(kind, code)), kind_(kind), code_(code) {}

ReleaseCenterClient::ReleaseCenterClient(QUrl manifestURL, HttpOptions http)
    : manifestURL_(std::move(manifestURL)), http_(std::move(http)) {}

ReleaseManifest ReleaseCenterClient::fetchManifest(const std::stop_token& stop) const {
  const auto response = fetchJson(manifestURL_, http_, kTimeout, kMaximumBytes, stop);
  if (!response) throw ReleaseCenterError(ReleaseCenterError::Kind::InvalidResponse);
  if (!isSuccess(response->status))
    throw ReleaseCenterError(ReleaseCenterError::Kind::Http, response->status);
  ReleaseManifest manifest = ReleaseManifest::decode(response->body);
  if (manifest.productId != kProduct)
    throw ReleaseCenterError(ReleaseCenterError::Kind::InvalidProduct);
  return manifest;
}

}  // namespace orvex
