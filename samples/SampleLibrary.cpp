#include "samples/SampleLibrary.h"

#include "samples/CubeFile.h"
#include "samples/SampleEffects.h"
#include "samples/TemplatePicture.h"
#include "samples/Write.h"

#include <QBuffer>

#include <array>

namespace orvex::samples {
namespace {

void makeLuts(const QString& folder) {
  const auto write = [](const QString& path, const QString& title, int size, const Look& look,
                        double share) {
    writeFile(path, cubeFile(title, size, [&look, share](const Rgb& color) {
                return mix(color, apply(look, color), share);
              }));
  };
  for (const Look& look : allLooks()) {
    const QString name = QString::fromUtf8(look.name);
    const QString shelf = folder + u'/' + QString::fromUtf8(look.family);
    write(QStringLiteral("%1/%2.cube").arg(shelf, name), name, 33, look, 1);
    for (const int percent : {25, 50, 75})
      write(QStringLiteral("%1/Hafif/%2 %%3.cube").arg(shelf, name).arg(percent),
            QStringLiteral("%1 %%2").arg(name).arg(percent), 17, look, percent / 100.0);
    write(QStringLiteral("%1/Hızlı/%2 9.cube").arg(shelf, name), name, 9, look, 1);
  }
  const QString technical = folder + QStringLiteral("/Teknik");
  for (const Conversion& conversion : allConversions()) {
    const QString name = QString::fromUtf8(conversion.name);
    writeFile(QStringLiteral("%1/%2.cube").arg(technical, name),
              cubeFile(name, 33, [&conversion](const Rgb& color) {
                return Rgb{conversion.convert(color[0]), conversion.convert(color[1]),
                           conversion.convert(color[2])};
              }));
  }
  const Conversion& last = allConversions().back();
  writeFile(QStringLiteral("%1/Eğri/%2.cube").arg(technical, QString::fromUtf8(last.name)),
            curveFile(QString::fromUtf8(last.name), 1024, last.convert));
}

void makeTemplates(const QString& folder) {
  for (const Template& entry : allTemplates()) {
    const QString name = QString::fromUtf8(entry.name);
    const QString own =
        QStringLiteral("%1/%2/%3/%4/")
            .arg(folder, QString::fromUtf8(entry.kind), QString::fromUtf8(entry.category), name);
    QByteArray png;
    QBuffer buffer(&png);
    pictureOf(entry).save(&buffer, "PNG");
    writeFile(own + QStringLiteral("small.png"), png);
    writeFile(own + name + u'.' + QString::fromUtf8(entry.extension),
              "Vantrelo Orvex sample template\n");
  }
}

struct Plug {
  const char* bundle = "";
  const char* name = "";
  const char* version = "";
  /// The name that people who read Turkish see, where there is one.
  const char* turkish = "";
};
constexpr std::array kPlugs{
    Plug{"Glow", "Orvex Glow", "2.1", "Orvex Işıma"},
    Plug{"Grain", "Orvex Grain", "1.4.2", "Orvex Film Greni"},
    Plug{"Denoise", "Orvex Denoise", "3.0.1", "Orvex Gürültü Giderme"},
    Plug{"Halation", "Orvex Halation", "1.0", ""},
    Plug{"LensFlare", "Orvex Lens Flare", "1.2", "Orvex Mercek Parlaması"},
    Plug{"Chromatic", "Orvex Chromatic", "0.9.5", "Orvex Renk Sapması"},
    Plug{"Stabilizer", "Orvex Stabilizer", "2.3", "Orvex Sabitleyici"},
    Plug{"SkinTone", "Orvex Skin Tone", "1.1", "Orvex Ten Rengi"},
    Plug{"Sharpen", "Orvex Sharpen", "1.6", "Orvex Keskinlik"},
    Plug{"Letterbox", "Orvex Letterbox", "1.0.3", ""},
    Plug{"Scope", "Orvex Scope", "4.0", "Orvex Dalga Biçimi"},
    Plug{"FrameHold", "Orvex Frame Hold", "1.3", "Orvex Kare Dondurma"},
};

void makePlugs(const QString& folder) {
  for (const Plug& plug : kPlugs) {
    const QString bundle = QString::fromUtf8(plug.bundle);
    const QString contents = QStringLiteral("%1/%2.fxplug/Contents").arg(folder, bundle);
    writeFile(
        contents + QStringLiteral("/Info.plist"),
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<plist version=\"1.0\">\n<dict>\n"
                       "  <key>CFBundleIdentifier</key><string>com.vantrelo.sample.%1</string>\n"
                       "  <key>CFBundleDisplayName</key><string>%2</string>\n"
                       "  <key>CFBundleShortVersionString</key><string>%3</string>\n"
                       "  <key>CFBundleDevelopmentRegion</key><string>en</string>\n"
                       "</dict>\n</plist>\n")
            .arg(bundle.toLower(), QString::fromUtf8(plug.name), QString::fromUtf8(plug.version))
            .toUtf8());
    if (*plug.turkish != '\0')
      writeFile(contents + QStringLiteral("/Resources/tr.lproj/InfoPlist.strings"),
                QStringLiteral("\"CFBundleDisplayName\" = \"%1\";\n")
                    .arg(QString::fromUtf8(plug.turkish))
                    .toUtf8());
  }
}

}  // namespace

void makeLibrary(const QString& folder) {
  const auto part = [&folder](const char* name) { return folder + u'/' + QString::fromUtf8(name); };
  makeLuts(part(kLutFolder));
  makeTemplates(part(kMotionFolder));
  makePlugs(part(kFxPlugFolder));
  makeEffects(part(kEffectFolder));
}

}  // namespace orvex::samples
