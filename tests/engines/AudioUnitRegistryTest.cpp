#include "engines/AudioUnitRegistry.h"
#include "platform/AudioComponents.h"
#include "support/Wait.h"

#include <gmock/gmock.h>
#include <mutex>
#include <semaphore>

using namespace orvex;
using namespace std::chrono_literals;

namespace {

// A system's registry that answers as it is told, when it is told.
class Components final : public AudioComponents {
 public:
  QList<AudioComponent> effects(const std::stop_token& stop) override {
    answers.acquire();
    stopped = stop.stop_requested();
    const std::scoped_lock lock(mutex_);
    return effects_;
  }
  void answer(const QList<AudioComponent>& effects) {
    {
      const std::scoped_lock lock(mutex_);
      effects_ = effects;
    }
    answers.release();
  }

  std::counting_semaphore<> answers{0};
  std::atomic<bool> stopped = false;

 private:
  std::mutex mutex_;
  QList<AudioComponent> effects_;
};

AudioComponent effect(const QString& manufacturer, const QString& name) {
  return {name, manufacturer, QStringLiteral("1.0"), QStringLiteral("Effect")};
}

// "maker name" for each, in order.
QStringList listed(const QStringList& effects, const QLocale& locale) {
  Components components;
  QList<AudioComponent> registered;
  for (const QString& text : effects)
    registered.append(effect(text.section(u' ', 0, 0), text.section(u' ', 1)));
  components.answer(registered);
  QStringList names;
  for (const AudioUnitItem& item : listAudioUnits(components, {}, Collation(locale)))
    names.append(item.manufacturer + u' ' + item.name);
  return names;
}

TEST(AudioUnitList, IsOrderedByManufacturerThenByName) {
  const QLocale english(QLocale::English);
  const QLocale turkish(QLocale::Turkish);
  const struct {
    QLocale locale;
    const char* effects;
    const char* ordered;
  } rows[] = {
      {english, "", ""},
      {english, "b Z,a Y,b a,A x,c B", "a Y,A x,b a,b Z,c B"},
      {english, "b B,b a,b C,b b", "b a,b B,b b,b C"},
      // One name in two spellings: neither comes first, so the system's order stands ...
      {english, "Apple Z,apple A", "Apple Z,apple A"},
      {english, "apple Z,Apple A", "apple Z,Apple A"},
      // ... and what stands between two effects of one spelling keeps them apart.
      {english, "Apple Z,apple M,Apple A", "Apple Z,apple M,Apple A"},
      {english, "apple M,Apple Z,Apple A", "apple M,Apple A,Apple Z"},
      {english, "zoo A,Apple Z,ace A,apple M,Apple A", "ace A,Apple Z,apple M,Apple A,zoo A"},
      // Accents do tell manufacturers apart.
      {english, "Écho A,Echo B,Echz A", "Echo B,Écho A,Echz A"},
      {english, "İz A,ız B,iz C,Iz D", "iz C,Iz D,İz A,ız B"},
      {turkish, "İz A,ız B,iz C,Iz D", "ız B,Iz D,İz A,iz C"},
      {turkish, "z A,ö A,o A,ş A,s A,ç A,c A", "c A,ç A,o A,ö A,s A,ş A,z A"},
      // No duplicate is removed.
      {english, "a A,a A", "a A,a A"},
      {english, " b, a,x y", " a, b,x y"},
  };
  for (const auto& [locale, effects, ordered] : rows) {
    const auto split = [](const char* text) {
      return QString::fromUtf8(text).split(u',', Qt::SkipEmptyParts);
    };
    EXPECT_EQ(listed(split(effects), locale), split(ordered)) << effects;
  }
}

TEST(AudioUnitList, ItemsCarryTheComponentsFields) {
  Components components;
  components.answer(
      {{QStringLiteral("Oda"), QStringLiteral("Yapımcı"), QStringLiteral("2.4"),
        QStringLiteral("Reverb"), true, false, 4294967295U, AudioComponent::kEffectType, 0},
       {QStringLiteral("x"), QStringLiteral("z"), {}, {}, false, true}});
  const QList<AudioUnitItem> items = listAudioUnits(components, {});
  ASSERT_EQ(items.size(), 2);
  EXPECT_EQ(items[0],
            (AudioUnitItem{QStringLiteral("4294967295-1635083896-0"), QStringLiteral("Oda"),
                           QStringLiteral("Yapımcı"), QStringLiteral("2.4"),
                           QStringLiteral("Reverb"), true, false}));
  EXPECT_EQ(items[1].id, u"0-1635083896-0");
  EXPECT_TRUE(items[1].passesAUVal);
}

class AudioUnits : public testing::Test {
 protected:
  [[nodiscard]] bool settled() {
    return waitUntil([this] { return !registry_->isRefreshing(); });
  }
  // Makers and names, in order.
  [[nodiscard]] QString items() const {
    QStringList names;
    for (const AudioUnitItem& item : registry_->items()) names.append(item.name);
    return names.join(u' ');
  }

  const QDateTime start_ = QDateTime::currentDateTimeUtc();
  const std::shared_ptr<Components> components_ = std::make_shared<Components>();
  std::unique_ptr<AudioUnitRegistry> registry_ = std::make_unique<AudioUnitRegistry>(components_);
};

TEST_F(AudioUnits, AreEmptyAtFirstAndRefreshedAtOnce) {
  EXPECT_TRUE(registry_->isRefreshing());
  const EngineSummary empty{EngineHealth::Empty, QStringLiteral("Audio Units"),
                            QStringLiteral("Kayıtlı AU effect bulunamadı."), 0};
  EXPECT_EQ(registry_->summary(), empty);
  const QDateTime made = registry_->lastRefresh();
  EXPECT_GE(made, start_);

  AudioComponent good = effect(QStringLiteral("Maker"), QStringLiteral("Good"));
  good.passesValidation = true;
  AudioComponent confined = effect(QStringLiteral("Other"), QStringLiteral("Confined"));
  confined.passesValidation = confined.sandboxSafe = true;
  components_->answer({effect(QStringLiteral("Maker"), QStringLiteral("Plain")), confined, good});
  QThread::msleep(2);
  ASSERT_TRUE(settled());
  EXPECT_EQ(items(), u"Good Plain Confined");
  EXPECT_EQ(registry_->validatedCount(), 2);
  EXPECT_EQ(registry_->sandboxSafeCount(), 1);
  EXPECT_EQ(
      registry_->summary(),
      (EngineSummary{EngineHealth::Ready, QStringLiteral("Audio Units"),
                     QStringLiteral("macOS tarafından kayıtlı Audio Unit effect envanteri."), 3}));
  EXPECT_GT(registry_->lastRefresh(), made);
  EXPECT_EQ(registry_->matching(u" mAKER "), (QList<qsizetype>{0, 1}));
  EXPECT_EQ(registry_->matching(u"conf"), QList<qsizetype>{2});
  EXPECT_EQ(registry_->matching(u" \n").size(), 3);

  registry_->refresh();
  EXPECT_EQ(items(), u"Good Plain Confined") << "what was listed stays until there is more";
  components_->answer({});
  ASSERT_TRUE(settled());
  EXPECT_EQ(registry_->summary(), empty);
  EXPECT_EQ(registry_->validatedCount() + registry_->sandboxSafeCount(), 0);
}

TEST_F(AudioUnits, OfTwoRefreshesTheLaterOneCounts) {
  int published = 0;
  QObject::connect(registry_.get(), &EngineRegistry::changed, [&] { ++published; });
  registry_->refresh();
  components_->answer({effect(QStringLiteral("a"), QStringLiteral("x"))});
  components_->answer({effect(QStringLiteral("a"), QStringLiteral("x"))});
  ASSERT_TRUE(settled());
  EXPECT_FALSE(waitUntil([&] { return published > 1; }, 50ms));
  EXPECT_EQ(published, 1);
}

TEST_F(AudioUnits, ARegistryThatGoesStopsItsRefresh) {
  registry_.reset();
  components_->answer({effect(QStringLiteral("a"), QStringLiteral("x"))});
  EXPECT_TRUE(waitUntil([this] { return components_.use_count() == 1; }));
  EXPECT_TRUE(components_->stopped);
}

}  // namespace
