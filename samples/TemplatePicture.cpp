#include "samples/TemplatePicture.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace orvex::samples {
namespace {

constexpr int kWidth = 320;
constexpr int kHeight = 180;
const QColor kAccent(0x8b, 0x7b, 0xff);

QLinearGradient downwards(const QColor& top, const QColor& bottom) {
  QLinearGradient gradient(0, 0, 0, kHeight);
  gradient.setColorAt(0, top);
  gradient.setColorAt(1, bottom);
  return gradient;
}

// Hills before a low sun, or at night before the moon.
QImage scene(bool night) {
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(image.rect(), night ? downwards({14, 20, 52}, {64, 66, 122})
                                       : downwards({58, 96, 168}, {255, 176, 112}));
  painter.setPen(Qt::NoPen);
  painter.setBrush(night ? QColor(236, 240, 255) : QColor(255, 238, 190));
  painter.drawEllipse(night ? QPointF(88, 46) : QPointF(226, 92), 22, 22);
  const std::array<QColor, 3> hills =
      night ? std::array<QColor, 3>{QColor(34, 38, 84), QColor(22, 26, 60), QColor(10, 12, 32)}
            : std::array<QColor, 3>{QColor(132, 92, 128), QColor(82, 62, 102), QColor(36, 32, 58)};
  for (int i = 0; i < 3; ++i) {
    QPainterPath hill(QPointF(0, kHeight));
    for (int x = 0; x <= kWidth; x += 4)
      hill.lineTo(x, 112 + i * 22 - 16 * std::sin(x * (0.021 + 0.006 * i) + i * 2.1) -
                         7 * std::sin(x * 0.063 + i));
    hill.lineTo(kWidth, kHeight);
    painter.setBrush(hills.at(static_cast<std::size_t>(i)));
    painter.drawPath(hill);
  }
  return image;
}

template <typename Change>
void eachPixel(QImage& image, Change change) {
  for (int y = 0; y < image.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) line[x] = change(line[x], x, y);
  }
}

QImage softened(const QImage& image, int factor) {
  return image
      .scaled(kWidth / factor, kHeight / factor, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
      .scaled(kWidth, kHeight, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void text(QImage& image, const QRectF& place, int size, const QString& words,
          int flags = Qt::AlignLeft | Qt::AlignVCenter) {
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  QFont font(QStringLiteral("Inter"));
  font.setPixelSize(size);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(place, flags, words);
}

void box(QImage& image, const QRectF& place, const QColor& color, double radius = 0) {
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawRoundedRect(place, radius, radius);
}

// Shows `after` where `shape` is.
void reveal(QImage& image, const QImage& after, const QPainterPath& shape) {
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipPath(shape);
  painter.drawImage(0, 0, after);
}

QPainterPath polygon(std::initializer_list<QPointF> points) {
  QPainterPath path;
  path.addPolygon(QPolygonF(points));
  path.closeSubpath();
  return path;
}

double wave(int x, int y) {
  return std::sin(x * 0.045) + std::sin(y * 0.06 + x * 0.02) + std::sin((x + 2 * y) * 0.025);
}

QRgb shade(double value, const QColor& from, const QColor& to) {
  const double t = std::clamp(value, 0.0, 1.0);
  const auto between = [t](int a, int b) { return static_cast<int>(a + (b - a) * t); };
  return qRgb(between(from.red(), to.red()), between(from.green(), to.green()),
              between(from.blue(), to.blue()));
}

// clang-format off
const std::array kTemplates{
    Template{"Effects", "Bulanıklık", "Yumuşak Odak", [](QImage& p, const QImage&) { p = softened(p, 14); }, "moef"},
    Template{"Effects", "Bulanıklık", "Kenarları Bulanık", [](QImage& p, const QImage&) {
      QPainterPath middle;
      middle.addEllipse(QRectF(80, 20, 160, 140));
      const QImage sharp = p;
      p = softened(p, 12);
      reveal(p, sharp, middle);
    }, "moef"},
    Template{"Effects", "Stilize", "Mozaik", [](QImage& p, const QImage&) {
      p = p.scaled(32, 18).scaled(kWidth, kHeight);
    }, "moef"},
    Template{"Effects", "Stilize", "Vinyet", [](QImage& p, const QImage&) {
      eachPixel(p, [](QRgb c, int x, int y) {
        const double far = std::hypot((x - 160) / 190.0, (y - 90) / 110.0);
        const double keep = std::clamp(1.25 - far * far, 0.05, 1.0);
        return qRgb(static_cast<int>(qRed(c) * keep), static_cast<int>(qGreen(c) * keep), static_cast<int>(qBlue(c) * keep));
      });
    }, "moef"},
    Template{"Effects", "Stilize", "Renk Kayması", [](QImage& p, const QImage&) {
      const QImage before = p;
      eachPixel(p, [&before](QRgb c, int x, int y) {
        return qRgb(qRed(before.pixel(std::max(x - 7, 0), y)), qGreen(c), qBlue(before.pixel(std::min(x + 7, kWidth - 1), y)));
      });
    }, "moef"},
    Template{"Effects", "Stilize", "Eski Televizyon", [](QImage& p, const QImage&) {
      eachPixel(p, [](QRgb c, int, int y) { return y % 4 < 2 ? c : QColor(c).darker(190).rgb(); });
    }, "moef"},
    Template{"Effects", "Renk", "Gümüş Ton", [](QImage& p, const QImage&) {
      eachPixel(p, [](QRgb c, int, int) { return qRgb(qGray(c), qGray(c), qGray(c)); });
    }, "moef"},
    Template{"Effects", "Renk", "Sepya", [](QImage& p, const QImage&) {
      eachPixel(p, [](QRgb c, int, int) { return shade(qGray(c) / 255.0, {38, 22, 12}, {255, 226, 178}); });
    }, "moef"},
    Template{"Effects", "Ayna", "Suda Yansıma", [](QImage& p, const QImage&) {
      const QImage before = p;
      eachPixel(p, [&before](QRgb c, int x, int y) {
        if (y < 120) return c;
        const int shift = static_cast<int>(3 * std::sin(y * 0.7));
        return QColor(before.pixel(std::clamp(x + shift, 0, kWidth - 1), 240 - y)).darker(140).rgb();
      });
    }, "moef"},
    Template{"Effects", "Ayna", "Dörtlü Ekran", [](QImage& p, const QImage&) {
      const QImage quarter = p.scaled(kWidth / 2, kHeight / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
      QPainter painter(&p);
      for (int i = 0; i < 4; ++i) painter.drawImage(i % 2 * kWidth / 2, i / 2 * kHeight / 2, quarter);
    }, "moef"},

    Template{"Generators", "Arka Planlar", "Mor Akış", [](QImage& p, const QImage&) {
      eachPixel(p, [](QRgb, int x, int y) { return shade(wave(x, y) / 5 + 0.5, {20, 14, 48}, {150, 110, 255}); });
    }, "motn"},
    Template{"Generators", "Arka Planlar", "Gün Batımı", [](QImage& p, const QImage&) {
      QPainter(&p).fillRect(p.rect(), downwards({70, 40, 120}, {255, 150, 90}));
    }, "motn"},
    Template{"Generators", "Arka Planlar", "Okyanus", [](QImage& p, const QImage&) {
      eachPixel(p, [](QRgb, int x, int y) { return shade(y / 180.0 + 0.1 * wave(x, y * 3), {120, 210, 230}, {6, 34, 80}); });
    }, "motn"},
    Template{"Generators", "Desenler", "Izgara", [](QImage& p, const QImage&) {
      eachPixel(p, [](QRgb, int x, int y) { return x % 20 == 0 || y % 20 == 0 ? kAccent.rgb() : qRgb(16, 16, 28); });
    }, "motn"},
    Template{"Generators", "Desenler", "Halkalar", [](QImage& p, const QImage&) {
      eachPixel(p, [](QRgb, int x, int y) {
        return shade(0.5 + 0.5 * std::sin(std::hypot(x - 160, y - 90) * 0.28), {18, 18, 34}, {95, 211, 188});
      });
    }, "motn"},
    Template{"Generators", "Desenler", "Dama", [](QImage& p, const QImage&) {
      eachPixel(p, [](QRgb, int x, int y) { return (x / 20 + y / 20) % 2 ? qRgb(214, 214, 226) : qRgb(56, 56, 74); });
    }, "motn"},
    Template{"Generators", "Test", "Renk Çubukları", [](QImage& p, const QImage&) {
      eachPixel(p, [](QRgb, int x, int) {
        const int bar = 7 - x * 8 / kWidth;
        return qRgb(bar & 2 ? 191 : 16, bar & 4 ? 191 : 16, bar & 1 ? 191 : 16);
      });
    }, "motn"},
    Template{"Generators", "Test", "Gri Basamaklar", [](QImage& p, const QImage&) {
      eachPixel(p, [](QRgb, int x, int) { const int grey = x * 11 / kWidth * 255 / 10; return qRgb(grey, grey, grey); });
    }, "motn"},

    Template{"Titles", "Alt Bantlar", "İsim Anahtarı", [](QImage& p, const QImage&) {
      box(p, {20, 122, 150, 40}, QColor(12, 12, 22, 210), 6);
      box(p, {20, 122, 5, 40}, kAccent, 2);
      text(p, {34, 124, 132, 20}, 14, QStringLiteral("Ayşe Yılmaz"));
      text(p, {34, 142, 132, 16}, 10, QStringLiteral("Yönetmen"));
    }, "moti"},
    Template{"Titles", "Alt Bantlar", "Konum", [](QImage& p, const QImage&) {
      box(p, {20, 136, 112, 28}, kAccent, 14);
      text(p, {20, 136, 112, 28}, 13, QStringLiteral("İstanbul"), Qt::AlignCenter);
    }, "moti"},
    Template{"Titles", "Alt Bantlar", "Haber Bandı", [](QImage& p, const QImage&) {
      box(p, {0, 140, 320, 26}, QColor(196, 30, 46));
      text(p, {12, 140, 300, 26}, 14, QStringLiteral("SON DAKİKA  •  Kurgu bitti"));
    }, "moti"},
    Template{"Titles", "Açılış", "Büyük Başlık", [](QImage& p, const QImage&) {
      box(p, {0, 0, 320, 180}, QColor(0, 0, 0, 70));
      text(p, p.rect(), 44, QStringLiteral("YOLCULUK"), Qt::AlignCenter);
    }, "moti"},
    Template{"Titles", "Açılış", "Bölüm", [](QImage& p, const QImage&) {
      box(p, {0, 0, 320, 180}, QColor(0, 0, 0, 150));
      text(p, {0, 50, 320, 30}, 15, QStringLiteral("BÖLÜM BİR"), Qt::AlignCenter);
      text(p, {0, 78, 320, 44}, 30, QStringLiteral("Işığa Doğru"), Qt::AlignCenter);
      box(p, {130, 130, 60, 3}, kAccent);
    }, "moti"},
    Template{"Titles", "Kapanış", "Jenerik", [](QImage& p, const QImage&) {
      box(p, {0, 0, 320, 180}, QColor(0, 0, 0, 215));
      for (int i = 0; i < 4; ++i)
        text(p, QRectF(0, 24 + i * 34, 320, 30), 14,
             QStringList{QStringLiteral("Kurgu  —  Can Öz"), QStringLiteral("Ses  —  Elif Ağaç"), QStringLiteral("Renk  —  İnci Uz"), QStringLiteral("Müzik  —  Şule Er")}.value(i),
             Qt::AlignCenter);
    }, "moti"},
    Template{"Titles", "Altyazı", "Kutulu Altyazı", [](QImage& p, const QImage&) {
      box(p, {56, 140, 208, 26}, QColor(0, 0, 0, 190), 4);
      text(p, {56, 140, 208, 26}, 13, QStringLiteral("Nereye gidiyoruz?"), Qt::AlignCenter);
    }, "moti"},
    Template{"Titles", "Sosyal", "Abone Ol", [](QImage& p, const QImage&) {
      box(p, {96, 72, 128, 38}, QColor(226, 44, 60), 19);
      text(p, {96, 72, 128, 38}, 16, QStringLiteral("ABONE OL"), Qt::AlignCenter);
    }, "moti"},

    Template{"Transitions", "Silme", "Çapraz Silme", [](QImage& p, const QImage& after) {
      reveal(p, after, polygon({{0, 0}, {210, 0}, {110, 180}, {0, 180}}));
    }, "motr"},
    Template{"Transitions", "Silme", "Panjur", [](QImage& p, const QImage& after) {
      for (int i = 0; i < 8; ++i) reveal(p, after, polygon({{i * 40.0, 0}, {i * 40.0 + 22, 0}, {i * 40.0 + 22, 180}, {i * 40.0, 180}}));
    }, "motr"},
    Template{"Transitions", "Şekiller", "Daire Açılış", [](QImage& p, const QImage& after) {
      QPainterPath circle;
      circle.addEllipse(QPointF(160, 90), 66, 66);
      reveal(p, after, circle);
    }, "motr"},
    Template{"Transitions", "Şekiller", "Elmas", [](QImage& p, const QImage& after) {
      reveal(p, after, polygon({{160, 4}, {270, 90}, {160, 176}, {50, 90}}));
    }, "motr"},
    Template{"Transitions", "Şekiller", "Yıldız", [](QImage& p, const QImage& after) {
      QPolygonF star;
      for (int i = 0; i < 10; ++i) {
        const double angle = i * std::numbers::pi / 5 - std::numbers::pi / 2;
        const double radius = i % 2 == 0 ? 84 : 36;
        star << QPointF(160 + radius * std::cos(angle), 92 + radius * std::sin(angle));
      }
      QPainterPath path;
      path.addPolygon(star);
      path.closeSubpath();
      reveal(p, after, path);
    }, "motr"},
    Template{"Transitions", "Geçiş", "Erime", [](QImage& p, const QImage& after) {
      QPainter painter(&p);
      painter.setOpacity(0.5);
      painter.drawImage(0, 0, after);
    }, "motr"},
    Template{"Transitions", "Geçiş", "Kayma", [](QImage& p, const QImage& after) {
      const QImage before = p;
      QPainter painter(&p);
      painter.drawImage(-140, 0, before);
      painter.drawImage(180, 0, after);
    }, "motr"},
};
// clang-format on

}  // namespace

std::span<const Template> allTemplates() {
  return kTemplates;
}

QImage pictureOf(const Template& entry) {
  QImage picture = scene(false);
  entry.draw(picture, scene(true));
  return picture;
}

}  // namespace orvex::samples
