#include "lut/CubeLattice.h"
#include "support/TemporaryTree.h"

#include <QDir>

#include <cmath>
#include <gmock/gmock.h>

using namespace orvex;

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
  return testing::ElementsAre(FloatNear(colour[0], error), FloatNear(colour[1], error),
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

// Every file of the corpus that can be read turns colours into their negatives.
TEST(OddCubes, AreReadOrRefusedWithLineAndReason) {
  const std::map<QString, CubeError> refused{
      {u"decimal-commas"_qs, {2, u"“1,0”: ondalık ayırıcı virgül değil nokta olmalı."_qs}},
      {u"nan"_qs, {6, u"“nan” geçerli bir renk değeri değil."_qs}},
      {u"infinity"_qs, {4, u"“-INF” geçerli bir renk değeri değil."_qs}},
      {u"huge-number"_qs, {4, u"“1e39” çok büyük veya çok küçük bir sayı."_qs}},
      {u"letters"_qs, {5, u"“0x1” bir sayı değil."_qs}},
      {u"two-columns"_qs, {5, u"Tablo satırında 3 sayı olmalı."_qs}},
      {u"four-columns"_qs, {2, u"Tablo satırında 3 sayı olmalı."_qs}},
      {u"too-few-rows"_qs, {8, u"Tablo eksik: 8 satır olmalı, 7 satır var."_qs}},
      {u"too-many-rows"_qs, {10, u"Tabloda fazla satır var: 8 satır olmalı."_qs}},
      {u"size-1"_qs, {1, u"LUT_3D_SIZE için 2–256 arası tek bir tam sayı yazılmalı."_qs}},
      {u"size-257"_qs, {1, u"LUT_3D_SIZE için 2–256 arası tek bir tam sayı yazılmalı."_qs}},
      {u"size-fraction"_qs, {1, u"LUT_3D_SIZE için 2–256 arası tek bir tam sayı yazılmalı."_qs}},
      {u"size-huge"_qs, {1, u"LUT_3D_SIZE için 2–256 arası tek bir tam sayı yazılmalı."_qs}},
      {u"size-256-empty"_qs, {1, u"Tablo eksik: 16777216 satır olmalı, 0 satır var."_qs}},
      {u"size-twice"_qs, {2, u"LUT_3D_SIZE ikinci kez yazılmış."_qs}},
      {u"size-after-table"_qs, {1, u"Tablodan önce LUT_3D_SIZE satırı yok."_qs}},
      {u"no-size"_qs, {0, u"LUT_3D_SIZE satırı yok."_qs}},
      {u"empty"_qs, {0, u"LUT_3D_SIZE satırı yok."_qs}},
      {u"one-dimensional"_qs, {2, u"Yalnız 1D tablo var; 3D tablo gerekli."_qs}},
      {u"one-dimensional-long"_qs, {4, u"Tabloda fazla satır var: 2 satır olmalı."_qs}},
      {u"domain-reversed"_qs, {0, u"Giriş aralığının başı sonundan küçük olmalı."_qs}},
      {u"domain-contradiction"_qs,
       {0, u"DOMAIN_MIN ve DOMAIN_MAX, öteki giriş aralığıyla veya 1D tabloyla çelişiyor."_qs}},
      {u"domain-with-shaper"_qs,
       {0, u"DOMAIN_MIN ve DOMAIN_MAX, öteki giriş aralığıyla veya 1D tabloyla çelişiyor."_qs}},
      {u"latin-1"_qs, {1, u"UTF-8 metin değil."_qs}},
      {u"utf-16"_qs, {1, u"UTF-8 metin değil."_qs}},
      {u"lower-case"_qs, {1, u"“lut_3d_size” bir sayı değil."_qs}},
      {u"html"_qs, {1, u"“<!DOCTYPE” bir sayı değil."_qs}},
      {u"nul-bytes"_qs,
       {2, u"“"_qs + QString(24, QChar::ReplacementCharacter) + u"…” bir sayı değil."_qs}},
  };
  int read = 0;
  for (const QString& name : QDir(QStringLiteral(ODD_CUBES)).entryList(QDir::Files)) {
    SCOPED_TRACE(name);
    const auto lattice = oddCube(name);
    const auto error = refused.find(name.chopped(5));
    if (error == refused.end()) {
      ASSERT_TRUE(lattice) << lattice.error().reason;
      expectNegatives(*lattice);
      ++read;
    } else {
      ASSERT_FALSE(lattice);
      EXPECT_EQ(lattice.error(), error->second);
    }
  }
  EXPECT_EQ(read, 14);
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
