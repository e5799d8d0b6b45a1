#include "base/FileUrl.h"
#include "base/PropertyList.h"
#include "lut/LUTApplyBridge.h"
#include "support/RecordedDesktop.h"
#include "support/ScriptedAccess.h"

using testing::MatchesRegex;
using testing::UnorderedElementsAreArray;

namespace {

const QByteArray kLUT = "LUT_3D_SIZE 2\n0 0 0\n";
const std::string kUuid = "[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}";
const QByteArray kInfo =
    "<plist><dict><key>CFBundleIdentifier</key><string>com.vantrelo.orvex.finalcut</string>"
    "</dict></plist>";
const QByteArray kLibrary = "data/Vantrelo Orvex/FinalCut/Managed LUTs/";
const QByteArray kRequests = kLibrary + "Bridge Requests/";

QByteArray reply(const QByteArray& ok, const QByteArray& message) {
  return "<plist><dict><key>more</key><array/><key>ok</key>" + ok + "<key>message</key>" + message +
         "</dict></plist>";
}
const QByteArray kApplied = reply("<true/>", "<string>Uygulandı</string>");

// The bridge between a folder access, a launcher and a clock that are the test's.
struct Bridge : testing::Test, RecordedDesktop {
  Bridge() {
    qputenv("XDG_DATA_HOME", tree.path("data"));
    tree.file("Pack/a.cube", kLUT);
    tree.file("X.app/Contents/Info.plist", kInfo);
    make("X.app/Contents/PlugIns/E.appex");
    helper = [this] { tree.file(replyPath(), kApplied); };
  }

  void make(const QByteArray& extension) {
    bridge = std::make_unique<LUTApplyBridge>(LUTApplyBridge::Environment{
        *this, access, *this, tree.text(extension),
        [this](std::chrono::milliseconds time, std::function<void()> then) {
          slept.append(time);
          QTimer::singleShot(0, &context, std::move(then));
        }});
    QObject::connect(bridge.get(), &LUTApplyBridge::failed, &context,
                     [this](const QString& description) {
                       failure = description;
                       EXPECT_FALSE(bridge->activePath());
                     });
  }
  void begin(const QByteArray& source = "Pack/a.cube") const {
    bridge->apply(fileUrl(tree.path(source)), fileUrl(tree.path("Pack")));
  }
  // Applies to the end; what came of it, as one text.
  QString apply(const QByteArray& source = "Pack/a.cube") {
    failure.clear();
    slept.clear();
    begin(source);
    EXPECT_EQ(bridge->activePath(), tree.text(source));
    EXPECT_FALSE(bridge->lastResult());
    EXPECT_TRUE(waitUntil([this] { return !bridge->activePath(); }));
    EXPECT_TRUE(access.used.isEmpty() && !access.stoppedUnused);
    EXPECT_NE(bridge->lastResult().has_value(), !failure.isEmpty());
    if (!failure.isEmpty()) return u"failed: "_s + failure;
    return (bridge->lastSucceeded() ? u"ok: "_s : u"not: "_s) + bridge->lastResult().value();
  }

  // The requests that lie there.
  [[nodiscard]] QStringList requests() const {
    return QDir(tree.text(kRequests)).entryList({u"request-*.plist"_s}, QDir::Files);
  }
  // The one request, as its helper reads it.
  [[nodiscard]] QVariantMap request() const {
    EXPECT_EQ(requests().size(), 1);
    const QByteArray bytes = tree.contents(kRequests + requests().value(0).toUtf8());
    EXPECT_TRUE(bytes.startsWith("bplist00"));
    return PropertyList::parse(bytes).value_or(QVariant()).toMap();
  }
  // Below the tree.
  [[nodiscard]] QByteArray replyPath() const {
    return request()[u"reply"_s].toString().toUtf8().sliced(tree.path({}).size());
  }

  TemporaryTree tree;
  QObject context;
  ScriptedAccess access;
  QList<std::chrono::milliseconds> slept;
  QString failure;
  std::unique_ptr<LUTApplyBridge> bridge;
};

TEST_F(Bridge, LeavesOneRequestAndTakesItsReply) {
  tree.file(kRequests + "request-old.PLIST");
  tree.file(kRequests + "request-folder.plist/inside");
  tree.file("elsewhere/file");
  tree.link(kRequests + "request-link.plist", tree.path("elsewhere"));
  const QStringList kept{u".request-hidden.plist"_s, u"other-request-x.plist"_s,
                         u"request-x.plist.txt"_s};
  for (const QString& name : kept) tree.file(kRequests + name.toUtf8());
  QVariantMap fields;
  helper = [&] {
    fields = request();
    tree.file(replyPath(), kApplied);
    // A second one is dropped without a word.
    begin("Pack/b.cube");
    EXPECT_EQ(bridge->activePath(), tree.text("Pack/a.cube"));
  };
  EXPECT_EQ(apply(), u"ok: Uygulandı");

  EXPECT_EQ(fields.keys(), (QStringList{u"path"_s, u"reply"_s}));
  const std::string root = tree.path(kLibrary).toStdString();
  const QString reply = fields[u"reply"_s].toString();
  EXPECT_THAT(fields[u"path"_s].toString().toStdString(),
              MatchesRegex(root + "[0-9a-f]{64}/a\\.cube"));
  EXPECT_THAT(reply.toStdString(), MatchesRegex(root + "apply-result-" + kUuid + "\\.plist"));
  EXPECT_FALSE(QFile::exists(reply));
  EXPECT_THAT(requests().value(0).toStdString(), MatchesRegex("request-" + kUuid + "\\.plist"));
  EXPECT_EQ(launches, QList{fileUrl(tree.path("X.app"))});
  EXPECT_EQ(access.everUsed, QList{fileUrl(tree.path("Pack"))});
  EXPECT_EQ(slept, QList{200ms});
  EXPECT_THAT(tree.names(kRequests), UnorderedElementsAreArray(kept + requests()));
  EXPECT_EQ(tree.names("elsewhere").size(), 1);
  EXPECT_EQ(std::filesystem::status(tree.path(kRequests).toStdString()).permissions(),
            std::filesystem::perms(0700));
}

TEST_F(Bridge, TakesRepliesByTheirExactTypes) {
  const QString invalid = u"failed: LUT yardımcı motoru geçersiz sonuç döndürdü."_s;
  const QString unreadable = u"failed: LUT yardımcı motorunun cevabı okunamadı"_s;
  const QByteArray text = "<string>X</string>";
  const std::pair<QString, QByteArray> rows[]{
      {u"ok: X"_s, *PropertyList::binary({{u"ok"_s, true}, {u"message"_s, u"X"_s}})},
      {u"ok: "_s, reply("<true/>", "<string></string>")},
      {u"not: X"_s, reply("<false/>", text)},
      {invalid, reply("<string>true</string>", text)},
      {invalid, reply("<integer>1</integer>", text)},
      {invalid, reply("<true/>", "<integer>1</integer>")},
      {invalid, "<plist><array><true/></array></plist>"},
      {unreadable, kApplied.chopped(4)},
      {unreadable, reply("<true/>", "<string>" + QByteArray(300'000, 'x') + "</string>")},
  };
  for (const auto& [outcome, bytes] : rows) {
    helper = [&] { tree.file(replyPath(), bytes); };
    const QString result = apply();
    EXPECT_TRUE(result.startsWith(outcome)) << result << " of " << bytes.left(200).constData();
    EXPECT_FALSE(QFile::exists(tree.text(replyPath())));
  }
  // What is no file is not waited for, and nothing behind it is touched.
  tree.file("outside", kApplied);
  const std::function<void()> plants[]{
      [&] { tree.link(replyPath(), tree.path("outside")); },
      [&] { tree.fifo(replyPath()); },
      [&] { tree.folder(replyPath() + "/sub"); },
  };
  for (const auto& plant : plants) {
    helper = plant;
    EXPECT_TRUE(apply().startsWith(u"failed: "));
    EXPECT_FALSE(QFileInfo(tree.text(replyPath())).isSymLink());
  }
  EXPECT_EQ(tree.contents("outside"), kApplied);
}

TEST_F(Bridge, GivesUpAfterThirtySecondsAndStaysUsable) {
  const auto answers = std::exchange(helper, nullptr);
  EXPECT_EQ(apply(),
            u"not: LUT yardımcı motoru cevap vermedi. Bridge request işlendi mi kontrol et.");
  EXPECT_EQ(slept, QList<std::chrono::milliseconds>(150, 200ms));
  helper = answers;
  EXPECT_EQ(apply(), u"ok: Uygulandı");
}

TEST_F(Bridge, TellsWhyItFailedAndKeepsTheLastFlag) {
  ASSERT_EQ(apply(), u"ok: Uygulandı");
  launchError = u"Başlatılamadı."_s;
  EXPECT_EQ(apply(), u"failed: Başlatılamadı.");
  EXPECT_TRUE(bridge->lastSucceeded());
  launches.clear();
  EXPECT_TRUE(apply("X.app/Contents/Info.plist").contains(u"paket klasörü dışında"));

  tree.file("Y.app/Contents/Info.plist", QByteArray(kInfo).replace("finalcut", "other"));
  tree.file("Folder/Contents/Info.plist", kInfo);
  for (const char* extension : {"Y.app/Contents/PlugIns/E.appex", "X.app/E.appex",
                                "Folder/Contents/PlugIns/E.appex", "X.app/a/b/c/E.appex"}) {
    make(extension);
    EXPECT_EQ(apply(), u"failed: Panelin yardımcı Vantrelo Orvex uygulaması bulunamadı."_s)
        << extension;
    EXPECT_EQ(requests().size(), 1);
  }
  EXPECT_EQ(launches.size(), 0);
  QDir(tree.text(kRequests)).removeRecursively();
  tree.file(kRequests.chopped(1), "in the way");
  EXPECT_TRUE(apply().contains(u"Bridge Requests"));
}

TEST_F(Bridge, MayGoAtAnyMoment) {
  const auto answers = helper;
  const auto beginAnew = [this](const std::function<void()>& newHelper) {
    helper = newHelper;
    make("X.app/Contents/PlugIns/E.appex");
    begin();
  };
  beginAnew(answers);
  bridge.reset();
  EXPECT_TRUE(access.used.isEmpty() && !access.stoppedUnused);
  beginAnew([this] { bridge.reset(); });
  EXPECT_TRUE(waitUntil([this] { return !bridge; }));
  beginAnew(nullptr);
  EXPECT_TRUE(waitUntil([this] { return slept.size() > 3; }));
  bridge.reset();
  QCoreApplication::processEvents();
  EXPECT_TRUE(access.used.isEmpty() && !access.stoppedUnused);

  // The end of one is a good moment to begin the next.
  beginAnew(answers);
  int ends = 0;
  QObject::connect(bridge.get(), &LUTApplyBridge::activePathChanged, &context, [&] {
    if (!bridge->activePath() && ++ends == 1) begin();
  });
  EXPECT_TRUE(waitUntil([&] { return ends == 2; }));
  EXPECT_EQ(bridge->lastResult(), u"Uygulandı");
}

}  // namespace
