#include "Lv2Bundles.h"
#include "platform/linux/Lv2AudioComponents.h"
#include "support/RecordedDesktop.h"

#include <future>

namespace {

struct Lv2Effects : testing::Test {
  [[nodiscard]] QList<AudioComponent> effects() { return components_.effects({}); }
  [[nodiscard]] QStringList names() {
    QStringList names;
    for (const AudioComponent& effect : effects()) names.append(effect.name);
    return names;
  }
  // What is listed of one plug-in; a component without a name for nothing.
  [[nodiscard]] AudioComponent only(const QByteArray& data) {
    bundles_.add("only", "http://plugins.example/reverb", data);
    return effects().value(0);
  }
  void addGood(const QByteArray& name) const {
    bundles_.add(name, "http://maker.example/" + name,
                 " ; doap:name \"" + name + "\"" + Lv2Bundles::kPorts + " .");
  }

  const Lv2Bundles bundles_;
  const std::shared_ptr<RecordedDesktop> log_ = std::make_shared<RecordedDesktop>();
  Lv2AudioComponents components_{QString::fromUtf8(LV2_PROGRAM), log_};
};

const QByteArray kUri = "http://plugins.example/reverb";
const QByteArray kName = " ; doap:name \"Reverb\"";
const QByteArray kPorts = Lv2Bundles::kPorts;

TEST_F(Lv2Effects, AreReadFromTheirBundles) {
  const AudioComponent effect = only(
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
}

TEST_F(Lv2Effects, LeaveOutWhatIsNoEffect) {
  const QByteArray cases[] = {
      ", lv2:InstrumentPlugin" + kName + kPorts,
      // A subclass of a generator, also beside another class.
      ", lv2:OscillatorPlugin, lv2:ReverbPlugin" + kName + kPorts,
      kName + " ; lv2:port " + QByteArray(Lv2Bundles::kOut).replace("index 1", "index 0"),
      // A port without which the rest means nothing.
      kName + " ; lv2:port " + QByteArray(Lv2Bundles::kIn).replace("index 0", "index 7") + " , " +
          Lv2Bundles::kOut,
      // Replaced by a newer one.
      kName + kPorts + " . <urn:newer> <http://purl.org/dc/terms/replaces> <" + kUri + ">",
  };
  for (const QByteArray& data : cases) EXPECT_EQ(only(data + " .").name, QString()) << data.data();
}

TEST_F(Lv2Effects, MakeDoWithWhatTheirMakersLeftOutOrAskFor) {
  const QByteArray hard = " ; lv2:optionalFeature lv2:hardRTCapable ; lv2:requiredFeature ";
  const struct {
    QByteArray data;
    QString manufacturer = u"plugins.example"_qs;
    QString version = u"0.0"_qs;
    bool confined = false;
    bool valid = true;
  } rows[] = {
      {.data = " ; lv2:microVersion 3 ; lv2:minorVersion \"zwei\"", .version = u"0.3"_qs},
      {" ; lv2:minorVersion -1, 99999999999999 ; lv2:microVersion 1.5"},
      {" ; doap:maintainer <http://maker.example/me>", u"maker.example"_qs},
      {" ; doap:maintainer [ foaf:homepage <http://home.example/> ]", u"home.example"_qs},
      {" ; lv2:project <http://project.example/x>", u"project.example"_qs},
      {.data = " ; lv2:requiredFeature lv2:hardRTCapable", .confined = true},
      {.data = hard + "<http://lv2plug.in/ns/ext/options#options>", .confined = true},
      {hard + "<http://lv2plug.in/ns/ext/worker#schedule>"},
      {.data = hard + "<http://x.example/feature>", .valid = false},
  };
  for (const auto& row : rows) {
    const AudioComponent effect = only(row.data + kName + kPorts + " .");
    EXPECT_EQ(effect.manufacturerName, row.manufacturer) << row.data.data();
    EXPECT_EQ(effect.versionString, row.version) << row.data.data();
    EXPECT_EQ(effect.sandboxSafe, row.confined) << row.data.data();
    EXPECT_EQ(effect.passesValidation, row.valid) << row.data.data();
  }
  const AudioComponent nameless = only(kPorts + " .");
  EXPECT_EQ(nameless.name, QString::fromUtf8(kUri));
  EXPECT_FALSE(nameless.passesValidation);
  ASSERT_TRUE(only(kName + kPorts + " .").passesValidation);
  ASSERT_TRUE(QFile::remove(bundles_.text("only.lv2/p.so")));
  EXPECT_FALSE(effects().value(0).passesValidation) << "there is nothing to load";
}

// A file that is read wrongly by whoever reads it, or never to its end.
TEST_F(Lv2Effects, ABrokenBundleCostsNothingButItself) {
  addGood("First");
  addGood("Last");
  const QByteArray prefixes = Lv2Bundles::kPrefixes;
  const QByteArray nested = prefixes + "<urn:x> lv2:y " + QByteArray(400'000, '(');
  const QByteArray plugin = prefixes + "<urn:x> a lv2:Plugin" + kName;
  // A file, what is in it, and whether its reader survives.
  const std::tuple<const char*, QByteArray, bool> cases[] = {
      {"manifest.ttl", QByteArray(5000, '\x91'), true},
      {"manifest.ttl", nested, false},
      {"p.ttl",
       plugin + " ; lv2:port " +
           QByteArray(Lv2Bundles::kIn).replace("index 0", "index 4000000000") + " .",
       false},
      // Classes that are each other's parents.
      {"p.ttl",
       prefixes + "<urn:x> a lv2:Plugin, <urn:a> . <urn:a> a rdfs:Class ; rdfs:subClassOf <urn:b> "
                  ". <urn:b> a rdfs:Class ; rdfs:subClassOf <urn:a> .",
       true},
      // A specification that ends its reader.
      {"manifest.ttl", prefixes + "<urn:s> a lv2:Specification ; rdfs:seeAlso <s.ttl> .", false},
  };
  for (const auto& [file, body, readable] : cases) {
    const QByteArray bundle = "Middle.lv2/";
    QDir(bundles_.text(bundle)).removeRecursively();
    bundles_.file(bundle + "manifest.ttl",
                  prefixes + "<urn:x> a lv2:Plugin ; lv2:binary <p.so> ; rdfs:seeAlso <p.ttl> .");
    bundles_.file(bundle + "s.ttl", nested);
    bundles_.file(bundle + file, body);
    log_->lines.clear();
    EXPECT_EQ(names(), (QStringList{u"First"_qs, u"Last"_qs})) << body.left(400).data();
    EXPECT_EQ(log_->lines.isEmpty(), readable) << qPrintable(log_->lines.join(u'|'));
    EXPECT_TRUE(readable || log_->lines.value(0).contains(QString::fromUtf8(bundle)))
        << body.right(60).data();
  }
}

TEST_F(Lv2Effects, PathsAreSearchedInOrderAndOddEntriesPassedOver) {
  addGood("Good");
  bundles_.file("file.lv2");
  bundles_.folder("pipe.lv2");
  bundles_.fifo("pipe.lv2/manifest.ttl");
  bundles_.link("loop.lv2", "loop.lv2");
  bundles_.link("again.lv2", "Good.lv2");
  const QByteArray path = qgetenv("LV2_PATH");
  qputenv("LV2_PATH", "/nonexistent::relative:" + path + ':' + path);
  EXPECT_EQ(names(), QStringList{u"Good"_qs});
  EXPECT_TRUE(log_->lines.isEmpty()) << qPrintable(log_->lines.join(u'|'));
}

TEST_F(Lv2Effects, AStopEndsAListThatHangsAndAMissingProgramIsLogged) {
  addGood("First");
  bundles_.add("Hangs", "urn:hangs", " .");
  ASSERT_TRUE(QFile::remove(bundles_.text("Hangs.lv2/p.ttl")));
  bundles_.fifo("Hangs.lv2/p.ttl");
  std::stop_source stop;
  auto listed =
      std::async(std::launch::async, [&] { return components_.effects(stop.get_token()); });
  EXPECT_EQ(listed.wait_for(300ms), std::future_status::timeout);
  stop.request_stop();
  EXPECT_EQ(listed.wait_for(5s), std::future_status::ready);

  EXPECT_TRUE(Lv2AudioComponents(u"/nonexistent/orvex-lv2"_qs, log_).effects({}).isEmpty());
  EXPECT_EQ(log_->lines.size(), 1) << "without its program the list is empty, and the log says so";
}

}  // namespace
