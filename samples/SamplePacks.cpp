#include "samples/SamplePacks.h"

#include "samples/CubeFile.h"
#include "samples/Write.h"
#include "services/Product.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace orvex::samples {
namespace {

struct Pack {
  const char* id = "";
  const char* name = "";
  const char* version = "";
  /// Of the looks in it.
  QList<const char*> families;
  int size = 0;
  /// Files are numbered instead of named after their looks.
  bool numbered = false;
  int files = 0;
};

void write(const QString& folder, const Pack& pack) {
  const QString own = QStringLiteral("%1/packs/%2/").arg(folder, QString::fromUtf8(pack.id));
  const QString name = QString::fromUtf8(pack.name);
  const QString version = QString::fromUtf8(pack.version);
  QString contents;
  int made = 0;
  for (const Look& look : allLooks()) {
    if (made == pack.files) break;
    if (!pack.families.contains(QByteArrayView(look.family))) continue;
    const QString title = QString::fromUtf8(look.name);
    ++made;
    const QString file =
        (pack.numbered ? QStringLiteral("lutpack%1").arg(made, 2, 10, QLatin1Char('0')) : title) +
        QStringLiteral(".cube");
    writeFile(own + QStringLiteral("shared/") + file,
              cubeFile(title, pack.size, [&look](const Rgb& color) { return apply(look, color); }));
    contents += QStringLiteral("%1  %2\n").arg(file, title);
  }
  writeFile(own + QStringLiteral("variants/final-cut/Beni Oku.txt"),
            QStringLiteral("%1 %2\n\n%3\nRec.709 görüntü içindir. Klibi seç, Color sayfasında "
                           "UYGULA'ya bas.\n")
                .arg(name, version, contents)
                .toUtf8());
  // Last: a pack without it is not one yet.
  writeFile(own + QStringLiteral("pack.json"),
            QJsonDocument(QJsonObject{{QStringLiteral("name"), name},
                                      {QStringLiteral("version"), version},
                                      {QStringLiteral("targets"), QJsonArray{kPackTarget}}})
                .toJson());
}

}  // namespace

void makePacks(const QString& folder, PackState state) {
  const bool updated = state == PackState::Updated;
  write(folder, {.id = "film-emulasyonu",
                 .name = "Film Emülasyonu",
                 .version = "1.0.0",
                 .families = {"Film", "Siyah Beyaz"},
                 .size = 33,
                 .files = 11});
  write(folder, {.id = "gece-cekimi",
                 .name = "Gece Çekimi",
                 .version = updated ? "1.1.0" : "1.0.0",
                 .families = {"Gece"},
                 .size = 17,
                 .files = updated ? 6 : 4});
  write(folder, {.id = "sinema-lut",
                 .name = "Sinema LUT Paketi",
                 .version = "1.0.0",
                 .families = {"Sinema", "Doğa", "Ten"},
                 .size = 33,
                 .numbered = true,
                 .files = 12});
  // Newer than any build of the panel that it can be tried with.
  writeFile(folder + QStringLiteral("/release.json"),
            QJsonDocument(
                QJsonObject{{QStringLiteral("productId"), kProduct},
                            {QStringLiteral("version"), QStringLiteral("0.4.0")},
                            {QStringLiteral("channel"), QStringLiteral("stable")},
                            {QStringLiteral("downloadURL"),
                             QStringLiteral("https://orvex.vantrelo.example/finalcut/0.4.0")},
                            {QStringLiteral("notesURL"),
                             QStringLiteral("https://orvex.vantrelo.example/finalcut/notes/0.4.0")},
                            {QStringLiteral("publishedAt"), QStringLiteral("2026-11-14")},
                            {QStringLiteral("mandatory"), false}})
                .toJson());
}

}  // namespace orvex::samples
