#include "base/Json.h"
#include "services/ReleaseManifest.h"
#include "services/SemanticVersion.h"
#include "services/UniversalPackCatalog.h"

namespace {

TEST(SemanticVersion, Compares) {
  const std::tuple<const char16_t*, const char16_t*, int> rows[]{
      {u"1.2", u"1.2.0", 0},
      {u"1.9", u"1.10", -1},
      {u"2.0.0-rc1", u"2.0.0", 0},
      {u"v2", u"1.0", -1},
      {u".1..2.", u"1.2", 0},
      {u"-1", u"", 0},
      {u"9223372036854775807", u"9223372036854775806", 1},
      {u"9223372036854775808.1", u"0.1", 0},
      // A numeric character belongs to the digits even where it makes no number of them.
      {u"1½.2", u"0.2", 0},
      {u"٣", u"0", 0},
      {u"5五.2", u"0.2", 0},
      {u"5\U0001D7D8", u"0", 0},
  };
  for (const auto& [a, b, order] : rows) {
    EXPECT_EQ(SemanticVersion(a) < SemanticVersion(b), order < 0) << QString::fromUtf16(a);
    EXPECT_EQ(SemanticVersion(a) > SemanticVersion(b), order > 0) << QString::fromUtf16(a);
  }
}

// The description of what is wrong, or nothing.
template <typename Record>
QString refusal(const QByteArray& document) {
  try {
    std::ignore = Record::decode(document);
    return {};
  } catch (const JsonError& error) {
    return error.description();
  }
}

TEST(ReleaseManifest, IsReadAsStrictlyAsItIsDescribed) {
  const QByteArray full =
      R"({"schemaVersion": 1, "productId": "p", "platform": "macos", "channel": "stable",
          "version": "1.2", "build": 9007199254740993, "minimumFinalCutVersion": "10.6",
          "minimumMacOSVersion": "13", "downloadURL": "https://x/y", "notesURL": "https://x/n",
          "sha256": "ab", "mandatory": true, "publishedAt": "2026-01-02", "extra": [{}]})";
  const ReleaseManifest manifest = ReleaseManifest::decode(full);
  EXPECT_EQ(manifest, (ReleaseManifest{1, u"p"_s, u"macos"_s, u"stable"_s, u"1.2"_s,
                                       9007199254740993, u"10.6"_s, u"13"_s, u"https://x/y"_s,
                                       u"https://x/n"_s, u"ab"_s, true, u"2026-01-02"_s}));
  EXPECT_EQ(ReleaseManifest::decode(manifest.encode()), manifest);
  const QJsonObject valid = QJsonDocument::fromJson(full).object();
  for (const QString& key : valid.keys()) {
    const auto with = [&](const QJsonValue& value) {
      QJsonObject changed = valid;
      changed.insert(key, value);
      return refusal<ReleaseManifest>(QJsonDocument(changed).toJson());
    };
    const bool isRequired = key == u"productId" || key == u"version" || key == u"downloadURL";
    EXPECT_EQ(with(QJsonValue::Undefined).contains(u"\"%1\" eksik"_s.arg(key)), isRequired);
    EXPECT_EQ(!with(QJsonValue::Null).isEmpty(), isRequired) << key;
    EXPECT_EQ(with(valid[key].isString() ? QJsonValue(1) : QJsonValue(u"1"_s))
                  .contains(u"\"%1\""_s.arg(key)),
              key != u"extra");
  }
}

TEST(Json, SurvivesDocumentsThatAreNone) {
  const QByteArray valid = R"({"schemaVersion":1,"revision":"r","packs":[]})";
  const auto with = [&](const QByteArray& revision) {
    return QByteArray(valid).replace("\"r\"", revision);
  };
  const QByteArray deep(100'000, '[');
  const std::pair<QByteArray, const char16_t*> rows[]{
      {{}, u"1. satır"},
      {"{\n  \"revision\": ,", u"2. satır"},
      {"[]", u"belgenin kendisi nesne olmalı, dizi bulundu"},
      {"1", u"1. satır"},
      {"{\"packs\":" + deep, u"derin"},
      {valid + "x", u"fazlalık"},
      {with("\"\xff\""), u"UTF-8"},
      {with("\"\xc0\x80\""), u"UTF-8"},
      {valid.chopped(1), u"yazım bozuk"},
      {with("{\"" + QByteArray(9000, 'x') + "\":1}"), u"\"revision\" metin olmalı, nesne bulundu"},
      // Of equal keys the last one counts.
      {valid.chopped(1) + R"(,"revision":1})", u"\"revision\" metin olmalı, 1 bulundu."},
      {R"({"revision":1,)" + valid.sliced(1), u""},
      {"\xEF\xBB\xBF" + valid, u"BOM"}};
  for (const auto& [document, word] : rows) {
    const QString description = refusal<UniversalPackCatalog>(document);
    EXPECT_TRUE(description.contains(word)) << QString::fromUtf16(word) << ": " << description;
    EXPECT_EQ(description.isEmpty(), *word == 0) << description;
    EXPECT_LT(description.size(), 200);
  }
}

QByteArray pack(const QByteArray& name, const QByteArray& targets = R"(["final-cut"])",
                const QByteArray& more = {}) {
  return R"({"schemaVersion":1,"id":"i","name":")" + name + R"(","version":"1","targets":)" +
         targets +
         R"(,"sharedAssets":[{"file":"a","sha256":"x","bytes":1}],"variants":{"final-cut":
            [{"file":"b","sha256":"y","bytes":2,"url":"https://h/b"}],"other":[]},
            "rollback":{"previousVersion":"0"})" +
         more + '}';
}

QByteArray catalog(const QByteArrayList& packs) {
  return R"({"schemaVersion":2,"revision":"r","packs":[)" + packs.join(',') + "]}";
}

TEST(UniversalPackCatalog, IsReadAsStrictlyAsItIsDescribed) {
  const auto decoded = UniversalPackCatalog::decode(
      catalog({pack("A", R"(["x"])", R"(,"manifestSHA256":"m")"), pack("B")}));
  EXPECT_EQ(decoded.schemaVersion, 2);
  EXPECT_EQ(decoded.packs[0].manifestSHA256, u"m"_s);
  EXPECT_EQ(decoded.packs[1].rollback.previousVersion, u"0"_s);
  EXPECT_EQ(UniversalPackCatalog::decode(decoded.encode()), decoded);
  const std::tuple<const char*, const char*, const char16_t*> rows[]{
      {R"("bytes":2)", R"("bytes":2.5)", u"\"packs[0].variants.final-cut[0].bytes\" 64 bit"},
      {R"("bytes":2)", R"("bytes":null)", u"bytes\" 64 bit"},
      {R"("bytes":2)", R"("bytes":true)", u"bytes\" 64 bit"},
      {R"("bytes":2)", R"("bytes":"2")", u"bytes\" 64 bit"},
      {R"("bytes":2)", R"("bytes":1e400)", u"geçersiz"},
      {R"("bytes":2)", R"("bytes":9223372036854775808)", u"bytes\" 64 bit"},
      {R"("bytes":2)", R"("bytes":-9223372036854775808)", u""},
      {R"("bytes":2)", R"("bytes":2.50e1)", u""},
      {R"("file":"a",)", "", u"\"packs[0].sharedAssets[0].file\" eksik"},
      {R"("rollback":{"previousVersion":"0"})", R"("x":1)", u"\"packs[0].rollback\" eksik"},
      {R"({"previousVersion":"0"})", "{}", u""},
      {R"({"previousVersion":"0"})", R"({"previousVersion":0})", u"previousVersion\" metin"},
      {R"("other":[])", R"("other":{})", u"\"packs[0].variants.other\" dizi"},
      {R"("url":"https://h/b")", R"("url":null)", u""},
      {R"("url":"https://h/b")", R"("url":7)", u"url\" metin olmalı, 7"},
      {R"(["final-cut"])", R"(["final-cut",1])", u"\"packs[0].targets[1]\" metin"}};
  for (const auto& [what, instead, place] : rows) {
    const QString description =
        refusal<UniversalPackCatalog>(catalog({pack("A").replace(what, instead)}));
    EXPECT_TRUE(description.contains(place)) << instead << ": " << description;
    EXPECT_EQ(description.isEmpty(), *place == 0) << description;
  }
}

TEST(UniversalPackCatalog, ChoosesThisPanelsPacks) {
  const auto decoded = UniversalPackCatalog::decode(
      catalog({pack("beta"), pack("Alpha", R"(["premiere","final-cut"])"), pack("alpha"),
               pack("c", R"(["Final-Cut"])"), pack("d", "[]")}));
  QStringList names;
  for (const UniversalPack& chosen : finalCutPacks(decoded, Collation(QLocale::English)))
    names.append(chosen.name);
  EXPECT_EQ(names, (QStringList{u"Alpha"_s, u"alpha"_s, u"beta"_s}));
  QStringList files;
  for (const UniversalPackAsset& asset : finalCutAssets(decoded.packs[0])) files.append(asset.file);
  EXPECT_EQ(files, (QStringList{u"a"_s, u"b"_s}));
}

}  // namespace
