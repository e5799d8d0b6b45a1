#include "samples/SampleEffects.h"

#include "samples/Write.h"

namespace orvex::samples {
namespace {

struct Effect {
  // Of the bundle, and the end of the address that identifies the effect.
  const char* id;
  const char* name;
  // A class of the LV2 standard.
  const char* kind;
  const char* maker;
  int minor;
  int micro;
  // Without one the effect does not pass validation.
  bool hasProgram = true;
  bool isRealTime = true;
};

constexpr Effect kEffects[] = {
    {"nefes", "Nefes Kompresör", "CompressorPlugin", "Orvex Ses", 2, 4},
    {"tavan", "Tavan Limiter", "LimiterPlugin", "Orvex Ses", 2, 0},
    {"kapi", "Sessizlik Kapısı", "GatePlugin", "Orvex Ses", 1, 2},
    {"ayar", "Beş Bantlı Ekolayzır", "ParaEQPlugin", "Orvex Ses", 3, 1},
    {"oda", "Küçük Oda", "ReverbPlugin", "Boğaz Audio", 1, 6},
    {"sarnic", "Sarnıç Yankısı", "ReverbPlugin", "Boğaz Audio", 1, 6, true, false},
    {"iskele", "İskele Gecikmesi", "DelayPlugin", "Boğaz Audio", 2, 2},
    {"koro", "Çift Koro", "ChorusPlugin", "Boğaz Audio", 1, 0},
    {"bant", "Makara Bant", "DistortionPlugin", "Kaset", 0, 9, false},
    {"lamba", "Lamba Sıcaklığı", "WaveshaperPlugin", "Kaset", 1, 3},
    {"dalga", "Dalga Flanger", "FlangerPlugin", "Kaset", 1, 1, true, false},
    {"ton", "Yarım Ton", "PitchPlugin", "Kaset", 0, 4, false, false},
};

QByteArray describe(const Effect& effect) {
  QByteArray text =
      "@prefix lv2: <http://lv2plug.in/ns/lv2core#> .\n"
      "@prefix doap: <http://usefulinc.com/ns/doap#> .\n"
      "@prefix foaf: <http://xmlns.com/foaf/0.1/> .\n"
      "@prefix rdfs: <http://www.w3.org/2000/01/rdf-schema#> .\n\n";
  text += "<urn:orvex:sample:" + QByteArray(effect.id) + ">\n  a lv2:Plugin, lv2:" + effect.kind;
  text += " ;\n  doap:name \"" + QByteArray(effect.name) + "\"";
  text += " ;\n  doap:maintainer [ foaf:name \"" + QByteArray(effect.maker) + "\" ]";
  text += " ;\n  lv2:minorVersion " + QByteArray::number(effect.minor);
  text += " ;\n  lv2:microVersion " + QByteArray::number(effect.micro);
  if (effect.isRealTime) text += " ;\n  lv2:optionalFeature lv2:hardRTCapable";
  text +=
      " ;\n  lv2:port [ a lv2:InputPort, lv2:AudioPort ; lv2:index 0 ; lv2:symbol \"in\" ;"
      " lv2:name \"Giriş\" ]"
      ",\n           [ a lv2:OutputPort, lv2:AudioPort ; lv2:index 1 ; lv2:symbol \"out\" ;"
      " lv2:name \"Çıkış\" ]";
  // The program's name is resolved where it is written.
  text += " ;\n  lv2:binary <effect.so> ;\n  rdfs:seeAlso <manifest.ttl> .\n";
  return text;
}

}  // namespace

void makeEffects(const QString& folder) {
  for (const Effect& effect : kEffects) {
    const QString bundle = folder + u'/' + QLatin1StringView(effect.id) + QStringLiteral(".lv2/");
    writeFile(bundle + QStringLiteral("manifest.ttl"), describe(effect));
    if (effect.hasProgram) writeFile(bundle + QStringLiteral("effect.so"), {});
  }
}

}  // namespace orvex::samples
