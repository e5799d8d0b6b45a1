#pragma once

#include <QByteArrayView>
#include <QString>

#include <expected>

namespace orvex {

/// What an address of the scheme "vantrelo-finalcut" asks for.
struct CompanionRequest {
  enum class Verb { FocusPanel, TimelineAction };

  /// No address that means something is nearly as long.
  static constexpr qsizetype kMaximumBytes = 256;

  Verb verb = Verb::FocusPanel;
  /// Of `TimelineAction`: one of `kTimelineActions`.
  QString action;

  /// Reads an address, which may come from anywhere, also from a web page. Nothing is decoded,
  /// normalised or overlooked: each request has exactly one spelling. The error, in Turkish, says
  /// what is refused.
  [[nodiscard]] static std::expected<CompanionRequest, QString> parse(QByteArrayView url);

  friend bool operator==(const CompanionRequest&, const CompanionRequest&) = default;
};

}  // namespace orvex
