#include "lut/CubeLattice.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace orvex {
namespace {

// The smallest edge of a lattice that stands for more than its points: for a shaper or for a part
// of its domain.
constexpr int kResampledSize = 65;

// Where `value` lies in `minimum`…`maximum`, in steps of a row of `count` points. Not-a-number lies
// at the beginning.
float steps(float value, float minimum, float maximum, std::size_t count) noexcept {
  const float part = (value - minimum) / (maximum - minimum);
  return (part > 0 ? std::min(part, 1.0F) : 0.0F) * static_cast<float>(count - 1);
}

// The point to the left, never the last one, and how far it is from there to the next.
struct Place {
  explicit Place(float steps, std::size_t count) noexcept
      : index(std::min(static_cast<std::size_t>(steps), count - 2)),
        part(steps - static_cast<float>(index)) {}

  std::size_t index;
  float part;
};

Rgb shaped(const CubeLattice& lattice, const Rgb& input) noexcept {
  Rgb output{};
  for (std::size_t i = 0; i < 3; ++i) {
    const std::size_t count = lattice.shaper.size();
    const Place at(steps(input[i], lattice.shaperMin[i], lattice.shaperMax[i], count), count);
    output[i] = std::lerp(lattice.shaper[at.index][i], lattice.shaper[at.index + 1][i], at.part);
  }
  return output;
}

bool isUnitDomain(const CubeLattice& lattice) noexcept {
  return lattice.domainMin == Rgb{0, 0, 0} && lattice.domainMax == Rgb{1, 1, 1};
}

// Calls `use` with every point of a lattice of `size` over 0 to 1, in the order of a file.
template <typename Use>
void forEachPoint(int size, Use use) {
  const auto last = static_cast<float>(size - 1);
  for (int b = 0; b < size; ++b)
    for (int g = 0; g < size; ++g)
      for (int r = 0; r < size; ++r)
        use({static_cast<float>(r) / last, static_cast<float>(g) / last,
             static_cast<float>(b) / last});
}

// The shortest texts that read back as the same numbers: nine digits at the most.
void appendRow(QByteArray& text, const Rgb& row) {
  std::array<char, 64> line{};
  char* end = line.data();
  for (std::size_t i = 0; i < 3; ++i) {
    end = std::to_chars(end, line.data() + line.size(), row[i]).ptr;
    *end++ = i < 2 ? ' ' : '\n';
  }
  text.append(line.data(), end - line.data());
}

}  // namespace

Rgb CubeLattice::apply(const Rgb& input) const noexcept {
  const Rgb in = shaper.empty() ? input : shaped(*this, input);
  const auto count = static_cast<std::size_t>(size);
  const auto place = [&](std::size_t i) {
    return Place(steps(in[i], domainMin[i], domainMax[i], count), count);
  };
  // From the near corner of the cell along its edges to the far one, the way with the longest part
  // first: the four corners passed are those of the tetrahedron that the colour lies in.
  struct Edge {
    float part;
    std::size_t stride;
  };
  std::array<Edge, 3> edges{};
  std::size_t at = 0;
  for (std::size_t i = 0, stride = 1; i < 3; ++i, stride *= count) {
    const Place edge = place(i);
    edges[i] = {edge.part, stride};
    at += edge.index * stride;
  }
  if (edges[0].part < edges[1].part) std::swap(edges[0], edges[1]);
  if (edges[1].part < edges[2].part) std::swap(edges[1], edges[2]);
  if (edges[0].part < edges[1].part) std::swap(edges[0], edges[1]);

  const std::array<float, 4> weights{1 - edges[0].part, edges[0].part - edges[1].part,
                                     edges[1].part - edges[2].part, edges[2].part};
  Rgb output{};
  for (std::size_t corner = 0;; ++corner) {
    const Rgb& point = points[at];
    for (std::size_t i = 0; i < 3; ++i) output[i] += weights[corner] * point[i];
    if (corner == 3) return output;
    at += edges[corner].stride;
  }
}

QByteArray canonicalCube(const CubeLattice& lattice) {
  const bool verbatim = lattice.shaper.empty() && isUnitDomain(lattice);
  const int size = verbatim ? lattice.size : std::max(lattice.size, kResampledSize);
  QByteArray text = "LUT_3D_SIZE " + QByteArray::number(size) + '\n';
  text.reserve(text.size() + qsizetype{size} * size * size * 33);
  if (verbatim)
    for (const Rgb& point : lattice.points) appendRow(text, point);
  else
    forEachPoint(size, [&](const Rgb& input) { appendRow(text, lattice.apply(input)); });
  return text;
}

}  // namespace orvex
