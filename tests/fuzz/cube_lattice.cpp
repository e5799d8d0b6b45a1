#include "Fuzz.h"
#include "lut/CubeLattice.h"

#include <cmath>

// What is read must give a colour for any input and, written canonically, read again; what is not
// must say why.
void check(const QByteArray& bytes) {
  const auto lattice = orvex::readCube(bytes);
  if (!lattice) {
    if (lattice.error().reason.isEmpty() || lattice.error().line < 0) std::abort();
    return;
  }
  for (const float value : {-1.0F, 0.0F, 0.3F, 1.0F, 3e38F, std::nanf("")})
    std::ignore = lattice->apply({value, 0.5F, 1 - value});
  // Resampling is too slow to be done for every input.
  if (lattice->shaper.empty() && lattice->domainMin == orvex::Rgb{0, 0, 0} &&
      lattice->domainMax == orvex::Rgb{1, 1, 1}) {
    const auto again = orvex::readCube(orvex::canonicalCube(*lattice));
    if (!again || again->points != lattice->points) std::abort();
  }
}
