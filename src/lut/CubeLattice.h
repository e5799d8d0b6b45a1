#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <expected>
#include <vector>

namespace orvex {

/// Red, green and blue; 0 is black and 1 is white, but neither is a bound.
using Rgb = std::array<float, 3>;

/// A 3D LUT as its `.cube` file states it (Adobe Cube LUT Specification 1.0, and the 1D part before
/// the 3D part that Resolve writes).
struct CubeLattice {
  /// Points on each edge, 2 to 256.
  int size = 0;
  /// Where the file states the size, counted from 1.
  int sizeLine = 0;
  /// The inputs that the first and the last point of an edge stand for.
  Rgb domainMin{0, 0, 0};
  Rgb domainMax{1, 1, 1};
  /// `size` cubed points, red changing fastest.
  std::vector<Rgb> points{};
  /// The curves applied before the lattice; empty when there are none.
  std::vector<Rgb> shaper{};
  Rgb shaperMin{0, 0, 0};
  Rgb shaperMax{1, 1, 1};

  /// The colour that `input` becomes: shaper by straight lines, lattice by tetrahedra, inputs
  /// outside the domain taken to its edge.
  [[nodiscard]] Rgb apply(const Rgb& input) const noexcept;
};

/// Why a file's lattice cannot be used.
struct CubeError {
  /// Counted from 1; 0 when it is the file as a whole.
  int line = 0;
  /// In Turkish.
  QString reason;

  friend bool operator==(const CubeError&, const CubeError&) = default;
};

/// Reads the whole text of a `.cube` file.
[[nodiscard]] std::expected<CubeLattice, CubeError> readCube(QByteArrayView text);
/// The same colours as a file that every reader understands: UTF-8 without a mark, line feeds, the
/// size first, the domain resampled to 0 to 1, no shaper. Values outside 0 to 1 are kept.
[[nodiscard]] QByteArray canonicalCube(const CubeLattice& lattice);

}  // namespace orvex
