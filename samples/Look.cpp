#include "samples/Look.h"

#include <algorithm>
#include <cmath>

namespace orvex::samples {
namespace {

double luma(const Rgb& c) {
  return 0.2126 * c[0] + 0.7152 * c[1] + 0.0722 * c[2];
}

// Steepest in the middle, through 0, 1/2 and 1.
double curved(double x, double amount) {
  const double s = x * x * (3 - 2 * x);
  return x + (s - x) * amount;
}

Rgb towardsTwoHues(const Rgb& c, double amount) {
  // Orange and teal lie on one line through grey; what is warm goes one way, what is cold the
  // other.
  constexpr Rgb kOrange{0.55, 0.05, -0.60};
  const double grey = luma(c);
  const double warm = std::clamp((c[0] - c[2]) * 1.2 + (0.55 - grey) * -0.35, -1.0, 1.0);
  Rgb result{};
  for (std::size_t i = 0; i < 3; ++i)
    result[i] = c[i] + (grey + kOrange[i] * warm * 0.55 - c[i]) * amount;
  return result;
}

// clang-format off
constexpr std::array kLooks{
    Look{.family = "Sinema", .name = "Turkuaz ve Turuncu", .saturation = 1.05, .contrast = 0.55,
         .shadows = {-0.02, 0.015, 0.04}, .highlights = {0.03, 0.005, -0.03}, .duotone = 0.55},
    Look{.family = "Sinema", .name = "Yumuşak Kontrast", .saturation = 0.95, .contrast = 0.35, .fade = 0.02},
    Look{.family = "Sinema", .name = "Gümüşlü Baskı", .grey = 0.55, .contrast = 0.95, .shadows = {-0.01, 0, 0.012}},
    Look{.family = "Sinema", .name = "Soğuk Gerilim", .exposure = -0.15, .warmth = -0.10, .saturation = 0.72,
         .contrast = 0.6, .shadows = {-0.02, 0.02, 0.03}},
    Look{.family = "Sinema", .name = "Sıcak Dram", .warmth = 0.10, .saturation = 1.08, .contrast = 0.45,
         .shadows = {0.02, -0.005, -0.02}},
    Look{.family = "Sinema", .name = "Yeşil Kod", .tint = -0.12, .saturation = 0.7, .contrast = 0.6,
         .shadows = {-0.02, 0.035, -0.005}},
    Look{.family = "Gece", .name = "Gündüzden Geceye", .exposure = -1.35, .warmth = -0.22, .saturation = 0.5,
         .contrast = 0.3, .shadows = {-0.01, 0.005, 0.05}},
    Look{.family = "Gece", .name = "Ay Işığı", .exposure = -0.7, .warmth = -0.16, .saturation = 0.6,
         .contrast = 0.4, .highlights = {-0.03, 0.0, 0.06}},
    Look{.family = "Gece", .name = "Sokak Lambası", .exposure = -0.35, .warmth = 0.20, .tint = 0.02,
         .saturation = 0.9, .contrast = 0.55, .shadows = {-0.01, -0.01, 0.02}, .highlights = {0.06, 0.02, -0.08}},
    Look{.family = "Gece", .name = "Neon", .exposure = -0.2, .tint = 0.08, .saturation = 1.45, .contrast = 0.7,
         .shadows = {0.03, -0.02, 0.06}, .highlights = {0.0, 0.02, 0.03}},
    Look{.family = "Gece", .name = "Mavi Saat", .exposure = -0.3, .warmth = -0.12, .saturation = 0.95,
         .contrast = 0.3, .shadows = {-0.01, 0.0, 0.06}, .highlights = {0.04, 0.0, -0.02}},
    Look{.family = "Gece", .name = "Sisli Sokak", .exposure = -0.25, .saturation = 0.55, .contrast = 0.05,
         .fade = 0.09, .shadows = {-0.01, 0.005, 0.02}},
    Look{.family = "Film", .name = "Tungsten Negatif", .warmth = -0.05, .saturation = 0.95, .contrast = 0.5,
         .fade = 0.03, .shadows = {-0.01, 0.01, 0.025}, .highlights = {0.03, 0.015, -0.02}},
    Look{.family = "Film", .name = "Gün Işığı Negatif", .warmth = 0.05, .saturation = 1.05, .contrast = 0.45,
         .fade = 0.02, .highlights = {0.02, 0.01, -0.015}},
    Look{.family = "Film", .name = "Soluk Baskı", .warmth = 0.04, .saturation = 0.7, .contrast = 0.15, .fade = 0.12,
         .shadows = {0.02, 0.0, 0.03}},
    Look{.family = "Film", .name = "Ters Banyo", .saturation = 1.2, .contrast = 0.85,
         .shadows = {-0.04, -0.01, 0.08}, .highlights = {0.05, 0.06, -0.10}},
    Look{.family = "Film", .name = "Sekiz Milimetre", .warmth = 0.14, .tint = 0.03, .saturation = 0.85,
         .contrast = 0.3, .fade = 0.08, .highlights = {0.05, 0.02, -0.06}},
    Look{.family = "Film", .name = "Doygun Dia", .saturation = 1.35, .contrast = 0.75, .shadows = {-0.01, -0.01, 0.01}},
    Look{.family = "Siyah Beyaz", .name = "Gümüş", .grey = 1, .contrast = 0.5},
    Look{.family = "Siyah Beyaz", .name = "Kırmızı Filtre", .grey = 1, .shares = {0.85, 0.25, -0.10}, .contrast = 0.8},
    Look{.family = "Siyah Beyaz", .name = "Yeşil Filtre", .grey = 1, .shares = {0.05, 0.95, 0.0}, .contrast = 0.4},
    Look{.family = "Siyah Beyaz", .name = "Sepya", .grey = 1, .contrast = 0.3, .fade = 0.03,
         .shadows = {0.05, 0.01, -0.04}, .highlights = {0.06, 0.02, -0.08}},
    Look{.family = "Siyah Beyaz", .name = "Mavi Ton", .grey = 1, .contrast = 0.45, .shadows = {-0.03, 0.0, 0.06}},
    Look{.family = "Doğa", .name = "Orman", .warmth = -0.02, .tint = -0.06, .saturation = 1.1, .contrast = 0.4,
         .shadows = {-0.015, 0.015, 0.0}},
    Look{.family = "Doğa", .name = "Altın Saat", .exposure = 0.1, .warmth = 0.18, .saturation = 1.15, .contrast = 0.3,
         .highlights = {0.05, 0.02, -0.04}},
    Look{.family = "Doğa", .name = "Kış", .exposure = 0.15, .warmth = -0.10, .saturation = 0.75, .contrast = 0.25,
         .highlights = {-0.01, 0.005, 0.03}},
    Look{.family = "Doğa", .name = "Deniz", .warmth = -0.04, .saturation = 1.15, .contrast = 0.35,
         .shadows = {-0.03, 0.02, 0.035}, .duotone = 0.2},
    Look{.family = "Ten", .name = "Porselen", .exposure = 0.12, .warmth = -0.02, .tint = 0.02, .saturation = 0.85,
         .contrast = 0.15, .fade = 0.02},
    Look{.family = "Ten", .name = "Bronz", .warmth = 0.09, .saturation = 1.05, .contrast = 0.4,
         .shadows = {0.02, 0.0, -0.015}, .duotone = 0.15},
};
// clang-format on

// A logarithmic camera curve of our own: ten stops, six of them below middle grey.
constexpr double kStops = 10;
constexpr double kBelow = 6;
constexpr double kMiddle = 0.18;

double rec709FromLinear(double x) {
  return x < 0.018 ? 4.5 * x : 1.099 * std::pow(x, 0.45) - 0.099;
}
double linearFromRec709(double x) {
  return x < 0.081 ? x / 4.5 : std::pow((x + 0.099) / 1.099, 1 / 0.45);
}

constexpr std::array kConversions{
    Conversion{"Log’dan Rec.709’a",
               [](double x) { return rec709FromLinear(kMiddle * std::exp2(x * kStops - kBelow)); }},
    Conversion{"Rec.709’dan Log’a",
               [](double x) {
                 const double linear = std::max(linearFromRec709(x), 1e-4);
                 return (std::log2(linear / kMiddle) + kBelow) / kStops;
               }},
    Conversion{"Gama 2.2’den 2.4’e", [](double x) { return std::pow(x, 2.2 / 2.4); }},
    Conversion{"Tam Aralıktan Yayına", [](double x) { return (16 + 219 * x) / 255; }},
    Conversion{"Yayından Tam Aralığa", [](double x) { return (255 * x - 16) / 219; }},
};

}  // namespace

Rgb mix(const Rgb& color, const Rgb& target, double share) {
  Rgb result{};
  for (std::size_t i = 0; i < 3; ++i) result[i] = color[i] + (target[i] - color[i]) * share;
  return result;
}

Rgb apply(const Look& look, const Rgb& color) {
  const double light = std::exp2(look.exposure);
  Rgb c{color[0] * light * (1 + look.warmth), color[1] * light * (1 - look.tint),
        color[2] * light * (1 - look.warmth)};
  if (look.duotone > 0) c = towardsTwoHues(c, look.duotone);
  double grey = 0;
  for (std::size_t i = 0; i < 3; ++i) grey += look.shares[i] * c[i];
  c = mix(c, {grey, grey, grey}, look.grey);
  const double middle = luma(c);
  c = mix({middle, middle, middle}, c, look.saturation);
  const double brightness = std::clamp(middle, 0.0, 1.0);
  for (std::size_t i = 0; i < 3; ++i) {
    c[i] = curved(std::clamp(c[i], 0.0, 1.0), look.contrast);
    c[i] = look.fade + c[i] * (1 - look.fade * 1.4);
    // Strongest a little away from the ends, which stay black and white.
    c[i] += look.shadows[i] * 4 * brightness * (1 - brightness) * (1 - brightness) * 1.6;
    c[i] += look.highlights[i] * 4 * brightness * brightness * (1 - brightness) * 1.6;
    c[i] = std::clamp(c[i], 0.0, 1.0);
  }
  return c;
}

std::span<const Look> allLooks() {
  return kLooks;
}

std::span<const Conversion> allConversions() {
  return kConversions;
}

}  // namespace orvex::samples
