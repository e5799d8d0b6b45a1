#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace orvex {

/// Whether a pack, or a version of one, can be called `name`.
[[nodiscard]] bool isPackName(const QString& name);
/// Whether a file of a pack can.
[[nodiscard]] bool isAssetName(const QString& name);

/// The name of the folder of a pack. Throws `UniversalPackClientError` where none can be called so.
[[nodiscard]] QByteArray packFolderName(const QString& id);

/// The record of an installed pack, beside its files.
inline constexpr char kPackRecordName[] = "installed.json";

/// A hidden folder beside the pack folders.
struct HiddenPackName {
  enum class Role : char {
    /// A pack that is being installed or removed.
    Staging = '-',
    /// A whole pack, out of the way for the moment in which another takes its place, where the file
    /// system cannot do that in one step.
    Aside = '+'
  };

  QByteArray id;
  Role role = Role::Staging;

  /// A fresh name.
  [[nodiscard]] QByteArray make() const;
  [[nodiscard]] static std::optional<HiddenPackName> parse(const QByteArray& name);
};

}  // namespace orvex
