#include "lut/CubeLattice.h"

namespace {

std::expected<CubeLattice, CubeError> oddCube(const QString& name) {
  return readCube(contentsOf(QStringLiteral(ODD_CUBES "/") + name));
}

template <typename Colour>
CubeLattice latticeOf(int size, Colour colour) {
  CubeLattice lattice{.size = size};
  const auto last = static_cast<float>(size - 1);
  for (int b = 0; b < size; ++b)
    for (int g = 0; g < size; ++g)
      for (int r = 0; r < size; ++r)
        lattice.points.push_back(
            colour(Rgb{static_cast<float>(r) / last, static_cast<float>(g) / last,
                       static_cast<float>(b) / last}));
  return lattice;
}

testing::Matcher<Rgb> isNear(const Rgb& colour, float error) {
  using testing::FloatNear;
  return ElementsAre(FloatNear(colour[0], error), FloatNear(colour[1], error),
                     FloatNear(colour[2], error));
}

// Colours on and between the points of any lattice, on the diagonals and off them.
const std::vector<Rgb> kColours{{0, 0, 0},          {1, 1, 1},          {1, 0, 0},
                                {0.5F, 0.5F, 0.5F}, {0.2F, 0.4F, 0.7F}, {0.7F, 0.4F, 0.2F},
                                {0.4F, 0.7F, 0.2F}, {0.3F, 0.3F, 0.9F}, {0.999F, 0.001F, 0.5F}};

void expectNegatives(const CubeLattice& lattice) {
  for (const Rgb& c : kColours)
    EXPECT_THAT(lattice.apply(c), isNear({1 - c[0], 1 - c[1], 1 - c[2]}, 1e-6F));
}

// Every file of the corpus that can be read turns colours into their negatives; of the others
// refused-cubes.txt says the line and the reason.
TEST(OddCubes, AreReadOrRefusedWithLineAndReason) {
  QMap<QString, CubeError> refused;
  const QString rows =
      QString::fromUtf8(contentsOf(QStringLiteral(ODD_CUBES "/../refused-cubes.txt")));
  for (const QString& row : rows.split(u'\n', Qt::SkipEmptyParts))
    refused[row.section(u' ', 0, 0)] = {row.section(u' ', 1, 1).toInt(), row.section(u' ', 2)};
  const QStringList names = QDir(QStringLiteral(ODD_CUBES)).entryList(QDir::Files);
  EXPECT_EQ(names.size(), refused.size() + 14);
  for (const QString& name : names) {
    SCOPED_TRACE(name);
    const auto lattice = oddCube(name);
    const auto error = refused.find(name.chopped(5));
    ASSERT_EQ(lattice.has_value(), error == refused.end());
    if (lattice)
      expectNegatives(*lattice);
    else
      EXPECT_EQ(lattice.error(), *error);
  }
}

TEST(CubeLattice, InterpolatesByTetrahedraAndTakesOtherColoursToTheEdge) {
  // Piecewise linear in each tetrahedron and nowhere else: the largest and the smallest channel.
  const auto extremes = [](const Rgb& c) {
    return Rgb{std::max({c[0], c[1], c[2]}), std::min({c[0], c[1], c[2]}), c[0] + c[1]};
  };
  for (const int size : {2, 5, 33}) {
    const CubeLattice lattice = latticeOf(size, extremes);
    for (const Rgb& colour : kColours)
      EXPECT_THAT(lattice.apply(colour), isNear(extremes(colour), 1e-5F)) << size;
    const float none = std::nanf("");
    EXPECT_THAT(lattice.apply({-3, 0.5F, 9}), isNear({1, 0, 0.5F}, 1e-5F));
    EXPECT_THAT(lattice.apply({none, 1, 1}), isNear({1, 0, 1}, 1e-5F));
  }
}

TEST(CanonicalCube, SaysTheSameColours) {
  const CubeLattice lattice = latticeOf(3, [](const Rgb& c) {
    return Rgb{c[0] / 3 - 0.1F, c[1] * 16777216, c[2] * 1e-30F};
  });
  EXPECT_EQ(readCube(canonicalCube(lattice)).value().points, lattice.points);
  // Without domain and shaper.
  for (const QString& name : {u"domain.cube"_qs, u"shaper.cube"_qs}) {
    const QByteArray text = canonicalCube(oddCube(name).value());
    EXPECT_TRUE(text.startsWith("LUT_3D_SIZE 65\n"));
    expectNegatives(readCube(text).value());
  }
}

}  // namespace
