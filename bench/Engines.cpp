// One measurement of the inventories in this process, as a line of milliseconds: a scan of a
// folder, or, with `lists`, sorting and searching many names.
#include "base/Collation.h"
#include "base/SearchIndex.h"
#include "engines/FxPlugScan.h"
#include "engines/LUTScan.h"
#include "engines/MotionTemplateScan.h"

#include <QCoreApplication>
#include <QRandomGenerator>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

using namespace orvex;
using Clock = std::chrono::steady_clock;

template <typename Work>
double milliseconds(Work work) {
  const auto begin = Clock::now();
  work();
  return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

// Names as plug-ins and LUTs have them: a few words, some of them Turkish, and a number.
QList<QString> names(int count) {
  static const QStringList words{
      QStringLiteral("Film"),  QStringLiteral("Gün Batımı"), QStringLiteral("Glow"),
      QStringLiteral("Işık"),  QStringLiteral("Kodak"),      QStringLiteral("İnce"),
      QStringLiteral("teal"),  QStringLiteral("Orange"),     QStringLiteral("sıcak"),
      QStringLiteral("Şehir"), QStringLiteral("Lower"),      QStringLiteral("Third")};
  QRandomGenerator random(1);
  QList<QString> result;
  for (int i = 0; i < count; ++i)
    result.append(QStringLiteral("%1 %2 %3 %4")
                      .arg(words[random.bounded(words.size())], words[random.bounded(words.size())],
                           words[random.bounded(words.size())])
                      .arg(random.bounded(100'000)));
  return result;
}

void measureLists(int count) {
  const QList<QString> all = names(count);
  QList<QByteArray> bytes;
  for (const QString& name : all) bytes.append(name.toUtf8());
  const double bytewise = milliseconds([&] { std::ranges::sort(bytes); });
  const Collation collation{QLocale(QLocale::Turkish)};
  const double sort = milliseconds([&] { std::ignore = collation.sorted(all); });
  SearchIndex index{QLocale(QLocale::Turkish)};
  const double fold = milliseconds([&] {
    for (const QString& name : all) index.add({name, name});
  });
  double slowest = 0;
  for (const char16_t* query : {u"i", u"ış", u"GÜN", u"sehir", u"third 4", u"zzz"})
    slowest = std::max(slowest, milliseconds([&] { std::ignore = index.find(query); }));
  std::printf("%.3f %.3f %.3f %.3f\n", bytewise, sort, fold, slowest);
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc != 3) return 2;
  const QByteArrayView what(argv[1]);
  const QByteArray root = argv[2];
  if (what == "lists") {
    measureLists(root.toInt());
    return 0;
  }
  qsizetype items = 0;
  const double spent = milliseconds([&] {
    if (what == "luts") items = scanLUTs(root, {}).items.size();
    if (what == "motion") items = scanMotionTemplates(root, {}).items.size();
    if (what == "fxplug") items = scanFxPlugs(root, {}).items.size();
  });
  std::printf("%.3f %lld\n", spent, static_cast<long long>(items));
  return 0;
}
