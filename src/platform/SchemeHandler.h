#pragma once

#include <QString>

#include <expected>

namespace orvex {

/// Which application of the user's session opens the addresses of a URL scheme. Changes what is
/// registered for the user only, never for the system.
class SchemeHandler {
 public:
  virtual ~SchemeHandler() = default;

  /// Makes `program`, an absolute path, the one that opens addresses of `scheme`: it is started
  /// with the address as its only argument. Doing it again, also with another path, replaces the
  /// former registration. The error, in Turkish, says what could not be written.
  [[nodiscard]] virtual std::expected<void, QString> add(const QString& scheme,
                                                         const QString& program) = 0;
  /// Takes back what `add` did for `scheme`; nothing to take back is no error.
  [[nodiscard]] virtual std::expected<void, QString> remove(const QString& scheme) = 0;
};

}  // namespace orvex
