#include "Lv2Bundles.h"
#include "platform/SystemLog.h"
#include "platform/linux/Lv2AudioComponents.h"

#include <QElapsedTimer>

#include <algorithm>
#include <future>
#include <sys/stat.h>
#include <thread>

using namespace orvex;

namespace {

class Lines final : public SystemLog {
 public:
  void line(const QString& text) override { lines.append(text); }
  QStringList lines;
};

class Lv2Effects : public testing::Test {
 protected:
  [[nodiscard]] QList<AudioComponent> effects() { return components_.effects({}); }
  [[nodiscard]] QStringList names() {
    QStringList names;
    for (const AudioComponent& effect : effects()) names.append(effect.name);
    return names;
  }
  // What is listed of one plug-in; a component without a name for nothing.
  [[nodiscard]] AudioComponent only(const QByteArray& uri, const QByteArray& data) {
    bundles_.add(QStringLiteral("only"), uri, data);
    return effects().value(0);
  }
  void addGood(const QString& name) const {
    bundles_.add(name, "http://maker.example/" + name.toUtf8(),
                 " ; doap:name \"" + name.toUtf8() + "\"" + Lv2Bundles::ports() + " .");
  }

  const Lv2Bundles bundles_;
  const std::shared_ptr<Lines> log_ = std::make_shared<Lines>();
  Lv2AudioComponents components_{QStringLiteral(LV2_PROGRAM), log_};
};

const QByteArray kUri = "http://plugins.example/reverb";
const QByteArray kName = " ; doap:name \"Reverb\"";
const QByteArray kPorts = Lv2Bundles::ports();

TEST_F(Lv2Effects, AreReadFromTheirBundles) {
  EXPECT_TRUE(effects().isEmpty());
  const AudioComponent effect =
      only(kUri,
           ", lv2:ReverbPlugin ; doap:name \"  Büyük\\n Oda \" ; lv2:minorVersion 4 ; "
           "lv2:microVersion 12 ; lv2:optionalFeature lv2:hardRTCapable ; "
           "lv2:requiredFeature <http://lv2plug.in/ns/ext/urid#map> ; "
           "doap:maintainer [ foaf:name \"Yapımcı\" ; foaf:homepage <http://home.example/> ]" +
               kPorts + " .");
  EXPECT_EQ(effect.name, u"Büyük Oda");
  EXPECT_EQ(effect.manufacturerName, u"Yapımcı");
  EXPECT_EQ(effect.versionString, u"4.12");
  EXPECT_EQ(effect.typeName, u"Reverb Plugin");
  EXPECT_TRUE(effect.passesValidation);
  EXPECT_TRUE(effect.sandboxSafe);
  // First four bytes of: printf %s TEXT | sha256sum
  EXPECT_EQ(effect.manufacturer, 0xb85cc725U);
  EXPECT_EQ(effect.type, 1635083896U);
  EXPECT_EQ(effect.subType, 0x1eb138daU);
  EXPECT_TRUE(log_->lines.isEmpty());
}

TEST_F(Lv2Effects, LeaveOutWhatIsNoEffect) {
  const QByteArray cases[] = {
      ", lv2:InstrumentPlugin" + kName + kPorts + " .",
      ", lv2:GeneratorPlugin" + kName + kPorts + " .",
      // A subclass of it, also beside another class.
      ", lv2:OscillatorPlugin, lv2:ReverbPlugin" + kName + kPorts + " .",
      kName + " ; lv2:port " + Lv2Bundles::out().replace("index 1", "index 0") + " .",
      kName + " ; lv2:port " + Lv2Bundles::in() + " .",
      kName + " .",
      // A port without which the rest means nothing.
      kName + " ; lv2:port " + Lv2Bundles::in("7") + " , " + Lv2Bundles::out() + " .",
  };
  for (const QByteArray& data : cases) EXPECT_EQ(only(kUri, data).name, QString()) << data.data();
  EXPECT_EQ(only(kUri, kName + kPorts + " .").name, u"Reverb");
  bundles_.add(QStringLiteral("newer"), "http://plugins.example/newer",
               " ; doap:name \"Newer\" ; <http://purl.org/dc/terms/replaces> <" + kUri + ">" +
                   kPorts + " .");
  bundles_.write(QStringLiteral("newer.lv2/manifest.ttl"),
                 Lv2Bundles::prefixes() +
                     "<http://plugins.example/newer> a lv2:Plugin ; lv2:binary <p.so> ; "
                     "<http://purl.org/dc/terms/replaces> <" +
                     kUri + "> ; rdfs:seeAlso <p.ttl> .");
  EXPECT_EQ(names(), QStringList{QStringLiteral("Newer")});
}

TEST_F(Lv2Effects, MakeDoWithWhatTheirMakersLeftOut) {
  const struct {
    QByteArray uri, data;
    QString name, manufacturer, version, type;
  } cases[] = {
      {kUri, kName, u"Reverb"_qs, u"plugins.example"_qs, u"0.0"_qs, u"Plugin"_qs},
      {"urn:x:reverb", kName, u"Reverb"_qs, QString(), u"0.0"_qs, u"Plugin"_qs},
      {kUri, "", QString::fromUtf8(kUri), u"plugins.example"_qs, u"0.0"_qs, u"Plugin"_qs},
      {kUri, kName + " ; lv2:microVersion 3 ; lv2:minorVersion \"zwei\"", u"Reverb"_qs,
       u"plugins.example"_qs, u"0.3"_qs, u"Plugin"_qs},
      {kUri, kName + " ; lv2:minorVersion -1, 99999999999999 ; lv2:microVersion 1.5", u"Reverb"_qs,
       u"plugins.example"_qs, u"0.0"_qs, u"Plugin"_qs},
      {kUri, kName + " ; doap:maintainer <http://maker.example/me>", u"Reverb"_qs,
       u"maker.example"_qs, u"0.0"_qs, u"Plugin"_qs},
      {kUri, kName + " ; doap:maintainer [ foaf:homepage <http://home.example/> ]", u"Reverb"_qs,
       u"home.example"_qs, u"0.0"_qs, u"Plugin"_qs},
      {kUri, kName + " ; lv2:project <http://project.example/x>", u"Reverb"_qs,
       u"project.example"_qs, u"0.0"_qs, u"Plugin"_qs},
      {kUri, kName + " ; lv2:project [ doap:maintainer [ foaf:name \"P\" ] ]", u"Reverb"_qs,
       u"P"_qs, u"0.0"_qs, u"Plugin"_qs},
      {kUri, kName + " ; doap:maintainer \"text\"", u"Reverb"_qs, u"plugins.example"_qs, u"0.0"_qs,
       u"Plugin"_qs},
      {kUri, ", <http://x.example/c#OwnPlugin>" + kName, u"Reverb"_qs, u"plugins.example"_qs,
       u"0.0"_qs, u"Plugin"_qs},
  };
  for (const auto& [uri, data, name, manufacturer, version, type] : cases) {
    const AudioComponent effect = only(uri, data + kPorts + " .");
    EXPECT_EQ(effect.name, name) << data.data();
    EXPECT_EQ(effect.manufacturerName, manufacturer) << data.data();
    EXPECT_EQ(effect.versionString, version) << data.data();
    EXPECT_EQ(effect.typeName, type) << data.data();
    EXPECT_EQ(effect.passesValidation, data.contains("doap:name")) << data.data();
  }
  EXPECT_EQ(
      only(kUri, " ; doap:name \"" + QByteArray(100'000, 'x') + "\"" + kPorts + " .").name.size(),
      256);
}

TEST_F(Lv2Effects, FeaturesDecideWhatIsConfinedAndWhatIsValid) {
  const QByteArray hard = " ; lv2:optionalFeature lv2:hardRTCapable";
  const auto requires_ = [](const QByteArray& feature) {
    return " ; lv2:requiredFeature " + feature;
  };
  const struct {
    QByteArray data;
    bool confined, valid;
  } cases[] = {
      {"", false, true},
      {hard, true, true},
      {requires_("lv2:hardRTCapable"), true, true},
      {hard + requires_("<http://lv2plug.in/ns/ext/options#options>"), true, true},
      {hard + requires_("<http://lv2plug.in/ns/ext/worker#schedule>"), false, true},
      {hard + " ; lv2:optionalFeature <http://lv2plug.in/ns/ext/worker#schedule>", true, true},
      {hard + requires_("<http://x.example/feature>"), false, false},
      {hard + requires_("\"text\""), false, false},
  };
  for (const auto& [data, confined, valid] : cases) {
    const AudioComponent effect = only(kUri, kName + data + kPorts + " .");
    EXPECT_EQ(effect.sandboxSafe, confined) << data.data();
    EXPECT_EQ(effect.passesValidation, valid) << data.data();
  }
  ASSERT_TRUE(QFile::remove(bundles_.path(QStringLiteral("only.lv2/p.so"))));
  EXPECT_FALSE(effects().value(0).passesValidation) << "there is nothing to load";
}

// A file that is read wrongly by whoever reads it, or never to its end.
TEST_F(Lv2Effects, ABrokenBundleCostsNothingButItself) {
  addGood(u"First"_qs);
  addGood(u"Last"_qs);
  const QByteArray prefixes = Lv2Bundles::prefixes();
  const struct {
    const char* what;
    const char* file;
    QByteArray body;
    bool readable;
  } cases[] = {
      {"cut manifest", "manifest.ttl", prefixes + "<urn:x> a lv2:Plugin ; lv2:binary ", true},
      {"noise", "manifest.ttl", QByteArray::fromHex("00ff13fe") + QByteArray(5000, '\x91'), true},
      {"empty manifest", "manifest.ttl", "", true},
      {"nested manifest", "manifest.ttl", prefixes + "<urn:x> lv2:y " + QByteArray(400'000, '('),
       false},
      {"cut data", "p.ttl", prefixes + "<urn:x> a lv2:Plugin" + kName + kPorts.left(60), true},
      {"data that is no text", "p.ttl", "\xff\xfe", true},
      {"no data", "other.ttl", "", true},
      {"negative port", "p.ttl",
       prefixes + "<urn:x> a lv2:Plugin" + kName + " ; lv2:port " + Lv2Bundles::in("-1") + " .",
       false},
      {"far port", "p.ttl",
       prefixes + "<urn:x> a lv2:Plugin" + kName + " ; lv2:port " + Lv2Bundles::in("4000000000") +
           " .",
       false},
      {"nested data", "p.ttl", prefixes + "<urn:x> lv2:y " + QByteArray(400'000, '('), false},
      {"classes that are each other's parents", "p.ttl",
       prefixes + "<urn:x> a lv2:Plugin, <urn:a> . <urn:a> a rdfs:Class ; rdfs:subClassOf <urn:b> "
                  ". <urn:b> a rdfs:Class ; rdfs:subClassOf <urn:a> .",
       true},
      {"a specification that ends its reader", "manifest.ttl",
       prefixes + "<urn:s> a lv2:Specification ; rdfs:seeAlso <s.ttl> .", false},
  };
  for (const auto& [what, file, body, readable] : cases) {
    const QString bundle = u"Middle.lv2/"_qs;
    QDir(bundles_.path(bundle)).removeRecursively();
    bundles_.write(bundle + u"manifest.ttl"_qs,
                   prefixes + "<urn:x> a lv2:Plugin ; lv2:binary <p.so> ; rdfs:seeAlso <p.ttl> .");
    bundles_.write(bundle + u"s.ttl"_qs, prefixes + "<urn:s> lv2:y " + QByteArray(400'000, '('));
    bundles_.write(bundle + QString::fromUtf8(file), body);
    log_->lines.clear();
    EXPECT_EQ(names(), (QStringList{u"First"_qs, u"Last"_qs})) << what;
    EXPECT_EQ(log_->lines.isEmpty(), readable) << what << qPrintable(log_->lines.join(u'|'));
    EXPECT_TRUE(readable || log_->lines.value(0).contains(bundle)) << what;
  }
}

TEST_F(Lv2Effects, PathsAreSearchedInOrderAndOddEntriesPassedOver) {
  addGood(u"Good"_qs);
  bundles_.write(u"file.lv2"_qs, "");
  bundles_.write(u"bare.lv2/other.ttl"_qs, "");
  QDir().mkpath(bundles_.path(u"pipe.lv2"_qs));
  ASSERT_EQ(::mkfifo(qPrintable(bundles_.path(u"pipe.lv2/manifest.ttl"_qs)), 0600), 0);
  ASSERT_TRUE(QFile::link(u"loop.lv2"_qs, bundles_.path(u"loop.lv2"_qs)));
  ASSERT_TRUE(QFile::link(bundles_.path(u"Good.lv2"_qs), bundles_.path(u"again.lv2"_qs)));
  const QByteArray path = qgetenv("LV2_PATH");
  qputenv("LV2_PATH", "/nonexistent::relative:" + path + ':' + path);
  EXPECT_EQ(names(), QStringList{u"Good"_qs});
  EXPECT_TRUE(log_->lines.isEmpty()) << qPrintable(log_->lines.join(u'|'));
}

TEST_F(Lv2Effects, AStopEndsAListThatHangs) {
  addGood(u"First"_qs);
  bundles_.add(u"Hangs"_qs, "urn:hangs", " .");
  const QString data = bundles_.path(u"Hangs.lv2/p.ttl"_qs);
  ASSERT_TRUE(QFile::remove(data));
  ASSERT_EQ(::mkfifo(qPrintable(data), 0600), 0);
  std::stop_source stop;
  auto listed =
      std::async(std::launch::async, [&] { return components_.effects(stop.get_token()); });
  using namespace std::chrono_literals;
  EXPECT_EQ(listed.wait_for(300ms), std::future_status::timeout);
  stop.request_stop();
  EXPECT_EQ(listed.wait_for(5s), std::future_status::ready);
}

TEST_F(Lv2Effects, WithoutItsProgramTheListIsEmptyAndTheLogSaysSo) {
  Lv2AudioComponents components(u"/nonexistent/orvex-lv2"_qs, log_);
  EXPECT_TRUE(components.effects({}).isEmpty());
  EXPECT_EQ(log_->lines.size(), 1);
}

}  // namespace
