#include "samples/CubeFile.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace orvex::samples {
namespace {

QByteArray header(const QString& title, const char* keyword, int size) {
  return "TITLE \"" + title.toUtf8() + "\"\n# Vantrelo Orvex, hesaplanmış örnek\n" + keyword + ' ' +
         QByteArray::number(size) + "\n\n";
}

void addLine(QByteArray& text, const Rgb& color) {
  // Room for one number, "0.000000", and then some.
  std::array<char, 16> number{};
  for (std::size_t i = 0; i < color.size(); ++i) {
    const char* end = std::to_chars(number.data(), number.data() + number.size(),
                                    std::clamp(color[i], 0.0, 1.0), std::chars_format::fixed, 6)
                          .ptr;
    text.append(number.data(), end - number.data()).append(i < 2 ? ' ' : '\n');
  }
}

}  // namespace

QByteArray cubeFile(const QString& title, int size, const std::function<Rgb(const Rgb&)>& color) {
  constexpr qsizetype kLine = 27;
  QByteArray text = header(title, "LUT_3D_SIZE", size);
  text.reserve(text.size() + kLine * size * size * size);
  const double step = 1.0 / (size - 1);
  for (int b = 0; b < size; ++b)
    for (int g = 0; g < size; ++g)
      for (int r = 0; r < size; ++r) addLine(text, color({r * step, g * step, b * step}));
  return text;
}

QByteArray curveFile(const QString& title, int size, double (*value)(double)) {
  QByteArray text = header(title, "LUT_1D_SIZE", size);
  for (int i = 0; i < size; ++i) {
    const double y = value(static_cast<double>(i) / (size - 1));
    addLine(text, {y, y, y});
  }
  return text;
}

}  // namespace orvex::samples
