#include "engines/AudioUnitRegistry.h"
#include "platform/AudioComponents.h"
#include "support/Wait.h"

#include <gmock/gmock.h>
#include <semaphore>

using namespace orvex;

namespace {

// A system's registry that answers as it is told, when it is told.
class Components final : public AudioComponents {
 public:
  QList<AudioComponent> effects(const std::stop_token& stop) override {
    answers_.acquire();
    stopped = stop.stop_requested();
    return effects_;
  }
  // To so many that ask.
  void answer(const QList<AudioComponent>& effects, int times = 1) {
    effects_ = effects;
    answers_.release(times);
  }

  std::atomic<bool> stopped = false;

 private:
  std::counting_semaphore<> answers_{0};
  QList<AudioComponent> effects_;
};

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
  const struct {
    QLocale::Language language;
    const char* listed;
    const char* ordered;
  } rows[] = {
      {QLocale::English, "b Z,a Y,b a,A x,c B", "a Y,A x,b a,b Z,c B"},
      // One maker in two spellings: neither comes first, so the system's order stands, and what
      // stands between two effects of one spelling keeps them apart.
      {QLocale::English, "apple M,Apple Z,Apple A", "apple M,Apple A,Apple Z"},
      {QLocale::Turkish, "İz A,ız B,iz C,Iz D", "ız B,Iz D,İz A,iz C"},
  };
  for (const auto& [language, listed, ordered] : rows) {
    Components components;
    components.answer(effects(listed));
    EXPECT_EQ(written(listAudioUnits(components, {}, Collation(QLocale(language)))),
              QString::fromUtf8(ordered));
  }
}

TEST(AudioUnits, AreRefreshedAtOnceAndTheLatestRefreshCounts) {
  const auto components = std::make_shared<Components>();
  auto registry = std::make_unique<AudioUnitRegistry>(components);
  const auto settled = [&] { return waitUntil([&] { return !registry->isRefreshing(); }); };
  const EngineSummary empty{EngineHealth::Empty, u"Audio Units"_qs,
                            u"Kayıtlı AU effect bulunamadı."_qs, 0};
  EXPECT_EQ(registry->summary(), empty);
  QList<AudioComponent> found = effects("Maker Plain,Other Confined,Maker Good");
  found[1].passesValidation = found[1].sandboxSafe = found[2].passesValidation = true;
  components->answer(found);
  ASSERT_TRUE(settled());
  EXPECT_EQ(written(registry->items()), u"Maker Good,Maker Plain,Other Confined");
  EXPECT_EQ(registry->validatedCount(), 2);
  EXPECT_EQ(registry->sandboxSafeCount(), 1);
  EXPECT_EQ(registry->summary().health, EngineHealth::Ready);
  EXPECT_EQ(registry->matching(u" mAKER "), (QList<qsizetype>{0, 1}));

  int published = 0;
  QObject::connect(registry.get(), &EngineRegistry::changed, [&] { ++published; });
  registry->refresh();
  registry->refresh();
  components->answer({}, 2);
  ASSERT_TRUE(settled());
  EXPECT_EQ(published, 1);
  EXPECT_EQ(registry->summary(), empty);

  registry->refresh();
  registry.reset();
  components->answer(found);
  EXPECT_TRUE(waitUntil([&] { return components.use_count() == 1; }));
  EXPECT_TRUE(components->stopped);
}

}  // namespace
