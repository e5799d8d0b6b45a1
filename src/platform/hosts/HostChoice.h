#pragma once

#include <QString>

#include <expected>
#include <memory>

namespace orvex {

class HostPicture;
class HostRuntime;

/// Which host to run beside, as `ORVEX_HOST` and `--host` name it:
/// "builtin", "builtin:RATE", "mpv", "mpv:SOCKET" or "none".
struct HostChoice {
  enum class Kind { BuiltIn, Mpv, None };

  Kind kind = Kind::BuiltIn;
  /// Of the built-in host: one of `BuiltInHost::frameRates`, written as "25" or "24000/1001".
  QString frameRate = QStringLiteral("25");
  /// Of mpv: the path of its IPC socket.
  QString socketPath{};

  /// Reads a choice; the error, in Turkish, lists what can be written. Empty text means "builtin".
  /// "mpv" alone means the socket `vantrelo-orvex-mpv.sock` in the user's runtime folder.
  [[nodiscard]] static std::expected<HostChoice, QString> parse(const QString& text);
  /// The choice as `parse` reads it, with the socket written out.
  [[nodiscard]] QString text() const;

  friend bool operator==(const HostChoice&, const HostChoice&) = default;
};

/// The runtime of the chosen host. It starts looking for its host at once and never blocks.
[[nodiscard]] std::unique_ptr<HostRuntime> makeHostRuntime(const HostChoice& choice);

/// Pictures of the chosen host; null when it has none to give.
[[nodiscard]] std::unique_ptr<HostPicture> makeHostPicture(const HostChoice& choice);

}  // namespace orvex
