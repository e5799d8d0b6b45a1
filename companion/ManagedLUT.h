#pragma once

#include "base/Directory.h"
#include "lut/CubeLattice.h"

#include <QString>

#include <expected>

namespace orvex {

/// A managed copy of a LUT, ready to be applied.
struct ManagedLUT {
  /// What people know it by.
  QString name;
  CubeLattice lattice;

  /// Reads the copy at `path`, which has to be one of `library`'s: nothing else is opened, and its
  /// bytes are those that its folder is named after. The error, a sentence in Turkish, says why it
  /// cannot be applied.
  [[nodiscard]] static std::expected<ManagedLUT, QString> read(const Directory& library,
                                                               const QByteArray& path);

  /// Writes the LUT in a form that every player reads as it was meant, and returns where. It stays
  /// there for 30 days: a player reads it again whenever it rebuilds its filters. Throws
  /// `FileError`.
  [[nodiscard]] QByteArray writeForPlayer(const Directory& library) const;
};

}  // namespace orvex
