#include "runtime/PanelOptions.h"

#include "shell/OrvexConfig.h"
#include "shell/PanelSize.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <algorithm>

namespace orvex {
namespace {

std::expected<QSizeF, QString> parseSize(const QString& text) {
  static const QRegularExpression form(QStringLiteral("^([0-9]{3,4})x([0-9]{3,4})$"));
  const QRegularExpressionMatch match = form.match(text);
  const QSizeF size(match.captured(1).toInt(), match.captured(2).toInt());
  if (!match.hasMatch() || std::min(size.width(), size.height()) < kLeastPanelExtent)
    return std::unexpected(
        QStringLiteral("--size \"%1\" geçersiz: GENİŞLİKxYÜKSEKLİK yaz, ikisi de en az %2 "
                       "(örneğin 1040x780).")
            .arg(text, QString::number(kLeastPanelExtent)));
  return size;
}

std::expected<OrvexPage, QString> parsePage(const QString& text) {
  if (const auto page = OrvexPage::fromRawValue(text)) return *page;
  QStringList ids;
  for (const OrvexPage page : OrvexPage::allCases()) ids.append(page.id());
  return std::unexpected(QStringLiteral("--page \"%1\" diye bir sayfa yok. Sayfalar: %2.")
                             .arg(text, ids.join(QStringLiteral(", "))));
}

// The toolkit's own words for it are English.
QString wrongUse(const QCommandLineParser& parser) {
  const QStringList unknown = parser.unknownOptionNames();
  const QString what =
      unknown.isEmpty()
          ? QStringLiteral("Bir seçeneğin değeri eksik ya da değer almayan birine değer verildi.")
          : QStringLiteral("\"%1\" diye bir seçenek yok.").arg(unknown.constFirst());
  return what + QStringLiteral(" Seçenekleri --help listeler.");
}

QString helpText() {
  return QStringLiteral(
      "Vantrelo Orvex Final Cut paneli\n"
      "\n"
      "kullanım: orvex-panel [SEÇENEK...]\n"
      "\n"
      "  --host HOST        yanında çalışılacak host: builtin, builtin:RATE, mpv, mpv:SOCKET ya "
      "da\n"
      "                     none\n"
      "  --page ID          açılacak sayfa, örneğin timeline\n"
      "  --size WxH         panelin boyu, örneğin 1040x780\n"
      "  --screenshot FILE  sayfayı ekransız çizer, PNG olarak kaydeder ve çıkar\n"
      "  --help             bu yardım\n"
      "  --version          sürüm\n");
}

}  // namespace

std::expected<PanelOptions, QString> PanelOptions::parse(const QStringList& arguments,
                                                         const QString& hostVariable) {
  const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
  const QCommandLineOption version(QStringList{QStringLiteral("v"), QStringLiteral("version")});
  const auto valued = [](const QString& name) { return QCommandLineOption(name, {}, name); };
  const QCommandLineOption host = valued(QStringLiteral("host"));
  const QCommandLineOption page = valued(QStringLiteral("page"));
  const QCommandLineOption size = valued(QStringLiteral("size"));
  const QCommandLineOption screenshot = valued(QStringLiteral("screenshot"));
  QCommandLineParser parser;
  parser.addOptions({help, version, host, page, size, screenshot});

  PanelOptions options;
  if (!parser.parse(arguments)) return std::unexpected(wrongUse(parser));
  if (!parser.positionalArguments().isEmpty())
    return std::unexpected(
        QStringLiteral("\"%1\" anlaşılmadı; panel yalnız --help ile listelenen seçenekleri alır.")
            .arg(parser.positionalArguments().constFirst()));
  if (parser.isSet(help)) {
    options.message = helpText();
    return options;
  }
  if (parser.isSet(version)) {
    options.message = QStringLiteral("orvex-panel %1\n").arg(OrvexConfig::version());
    return options;
  }
  const auto choice = HostChoice::parse(parser.isSet(host) ? parser.value(host) : hostVariable);
  if (!choice) return std::unexpected(choice.error());
  options.host = *choice;
  if (parser.isSet(page)) {
    const auto parsed = parsePage(parser.value(page));
    if (!parsed) return std::unexpected(parsed.error());
    options.page = *parsed;
  }
  if (parser.isSet(size)) {
    const auto parsed = parseSize(parser.value(size));
    if (!parsed) return std::unexpected(parsed.error());
    options.size = *parsed;
  }
  if (parser.isSet(screenshot)) {
    options.screenshot = parser.value(screenshot);
    if (options.screenshot.isEmpty())
      return std::unexpected(QStringLiteral("--screenshot bir dosya adı ister."));
  }
  return options;
}

}  // namespace orvex
