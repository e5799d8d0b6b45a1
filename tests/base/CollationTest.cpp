#include "base/Collation.h"
#include "base/SearchIndex.h"

namespace {

const QLocale kTurkish(QLocale::Turkish);
const QLocale kEnglish(QLocale::English);
const QLocale kSwedish(QLocale::Swedish);

QStringList sorted(const QLocale& locale, const QStringList& names) {
  QStringList result;
  for (const qsizetype i : Collation(locale).sorted(names)) result.append(names[i]);
  return result;
}

TEST(Collation, SortsAsTheLanguageDoes) {
  const std::pair<QLocale, QString> rows[]{
      // The dotless i before the dotted one, each beside its capital; ç, ö, ş after their letters.
      {kTurkish, u"Cam,çam,Hat,Isı,ısırgan,İlk,inci,Oda,ödev,Sal,şal,zil"_qs},
      {kEnglish, u"Äpfel,apple,Banana,cafe,café,çam,cat,Zebra"_qs},
      {kSwedish, u"Apa,Zebra,ådra,äpple,öl"_qs},
  };
  for (const auto& [locale, names] : rows) {
    const QStringList expected = names.split(u',');
    EXPECT_EQ(sorted(locale, {expected.rbegin(), expected.rend()}), expected);
  }
}

// More names than one thread takes at a time, and names longer than the room for a key.
TEST(Collation, SortsManyAndLongNames) {
  QStringList names;
  for (int i = 0; i < 5000; ++i)
    names.append(
        u"%1 %2"_qs.arg((i * 7919) % 5000, 4, 10, QLatin1Char('0')).arg(QString(300, u'x')));
  QStringList expected = names;
  expected.sort();
  EXPECT_EQ(sorted(kTurkish, names), expected);
}

TEST(SearchIndex, FindsTextsByTheRulesOfTheLanguage) {
  const std::tuple<QLocale, const char16_t*, const char16_t*, bool> rows[]{
      {kEnglish, u"Film Look", u"  LOOK \n", true},
      {kEnglish, u"İlk", u"ilk", false},
      {kTurkish, u"İlk", u"ilk", true},
      {kTurkish, u"I\u0307lk", u"ilk", true},
      {kTurkish, u"ilk", u"ILK", false},
      {kTurkish, u"ISI", u"ısı", true},
      {kEnglish, u"Cafe\u0301", u"CAFÉ", true},
      // A letter is not found where a mark makes it another one, even one without a code point.
      {kEnglish, u"Cafe\u0301", u"cafe", false},
      {kEnglish, u"q\u0307r", u"q", false},
  };
  for (const auto& [locale, text, query, found] : rows) {
    SearchIndex index(locale);
    index.add({text});
    EXPECT_EQ(index.find(query).size(), found ? 1 : 0)
        << locale.name() << QString::fromUtf16(text) << QString::fromUtf16(query);
  }
}

TEST(SearchIndex, NamesEachItemOnceInOrder) {
  SearchIndex index(kEnglish);
  index.add({u"banana", u"fruit"});
  index.add({u"", u""});
  index.add({u"ana", u"banana"});
  EXPECT_THAT(index.find(u"ana"), ElementsAre(0, 2));
  EXPECT_THAT(index.find(u" \t\n"), ElementsAre(0, 1, 2));
  // No text runs on into the next one.
  EXPECT_THAT(index.find(u"anafruit"), IsEmpty());
}

}  // namespace
