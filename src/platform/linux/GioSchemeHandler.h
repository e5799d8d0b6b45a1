#pragma once

#include "platform/SchemeHandler.h"

namespace orvex {

/// The handler as a desktop entry in the user's applications folder,
/// `$XDG_DATA_HOME/applications/com.vantrelo.orvex.finalcut.desktop`, and the user's default
/// application for the scheme.
class GioSchemeHandler final : public SchemeHandler {
 public:
  [[nodiscard]] std::expected<void, QString> add(const QString& scheme,
                                                 const QString& program) override;
  [[nodiscard]] std::expected<void, QString> remove(const QString& scheme) override;
};

}  // namespace orvex
