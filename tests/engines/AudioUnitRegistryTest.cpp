#include "engines/AudioUnitRegistry.h"
#include "support/NoSystem.h"

namespace {

// Effects written as "maker name,maker name".
QList<AudioComponent> effects(const char* text) {
  QList<AudioComponent> effects;
  for (const QString& one : QString::fromUtf8(text).split(u',', Qt::SkipEmptyParts))
    effects.append({one.section(u' ', 1), one.section(u' ', 0, 0), u"1.0"_qs, u"Effect"_qs});
  return effects;
}

QString written(const QList<AudioUnitItem>& items) {
  QStringList names;
  for (const AudioUnitItem& item : items) names.append(item.manufacturer + u' ' + item.name);
  return names.join(u',');
}

TEST(AudioUnitList, IsOrderedByManufacturerThenByName) {
  const std::tuple<QLocale::Language, const char*, const char*> rows[] = {
      {QLocale::English, "b Z,a Y,b a,A x,c B", "a Y,A x,b a,b Z,c B"},
      // One maker in two spellings: neither comes first, so the system's order stands, and what
      // stands between two effects of one spelling keeps them apart.
      {QLocale::English, "apple M,Apple Z,Apple A", "apple M,Apple A,Apple Z"},
      {QLocale::Turkish, "İz A,ız B,iz C,Iz D", "ız B,Iz D,İz A,iz C"},
  };
  for (const auto& [language, listed, ordered] : rows) {
    ListedAudio components;
    components.listed = effects(listed);
    EXPECT_EQ(written(listAudioUnits(components, {}, Collation(QLocale(language)))),
              QString::fromUtf8(ordered));
  }
}

TEST(AudioUnits, AreListedAtOnceAndWithEveryRefresh) {
  const auto components = std::make_shared<ListedAudio>();
  AudioUnitRegistry registry(components);
  const auto settled = [&] { return waitUntil([&] { return !registry.isRefreshing(); }); };
  ASSERT_TRUE(settled());
  EXPECT_EQ(registry.summary(), (EngineSummary{EngineHealth::Empty, u"Audio Units"_qs,
                                               u"Kayıtlı AU effect bulunamadı."_qs, 0}));
  QList<AudioComponent> found = effects("Maker Plain,Other Confined,Maker Good");
  found[1].passesValidation = found[1].sandboxSafe = found[2].passesValidation = true;
  components->listed = found;
  registry.refresh();
  ASSERT_TRUE(settled());
  EXPECT_EQ(written(registry.items()), u"Maker Good,Maker Plain,Other Confined");
  EXPECT_EQ(registry.validatedCount(), 2);
  EXPECT_EQ(registry.sandboxSafeCount(), 1);
  EXPECT_EQ(registry.summary().health, EngineHealth::Ready);
  EXPECT_EQ(registry.matching(u" mAKER "), (QList<qsizetype>{0, 1}));
}

}  // namespace
