// The companion as the helper of the LUT bridge, on a real bus and beside a real player.
#include "CompanionCase.h"
#include "base/FileUrl.h"
#include "base/NewFile.h"
#include "base/PropertyList.h"
#include "base/Sha256.h"
#include "lut/CloudLUTPreparation.h"
#include "lut/LUTApplyBridge.h"
#include "support/MpvPlayer.h"

#include <QImage>
#include <QUuid>

namespace {

struct LUTService : CompanionCase {
  LUTService() {
    // As people write it, too.
    qputenv("XDG_DATA_HOME", qgetenv("ORVEX_TEST_HOME") + "/./data/");
    host_ = u"builtin:25"_s;
    clip_ = u"Röportaj 1"_s;
  }

  [[nodiscard]] QString library(const QString& below) const {
    return home(u"data/Vantrelo Orvex/FinalCut/Managed LUTs/"_s + below);
  }
  // The managed copy of a LUT.
  [[nodiscard]] QString copy(const QString& name, const QByteArray& text) const {
    tree_.file("Pack/" + name.toUtf8(), text);
    return fileText(CloudLUTPreparation::prepare(fileUrl(tree_.path("Pack/" + name.toUtf8())),
                                                 fileUrl(tree_.path("Pack")),
                                                 QUrl::fromLocalFile(library({}))));
  }
  [[nodiscard]] QString newReply() const {
    return library(u"apply-result-%1.plist"_s.arg(
        QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper()));
  }
  [[nodiscard]] QString requestPath(const QString& name) const {
    return library(u"Bridge Requests/request-%1.plist"_s.arg(name));
  }
  void leave(const QString& name, const QByteArray& bytes) const {
    ASSERT_TRUE(replaceFile(requestPath(name).toUtf8(), bytes));
  }
  void leave(const QString& name, const QString& path, const QString& reply) const {
    leave(name, PropertyList::binary({{u"path"_s, path}, {u"reply"_s, reply}}).value());
  }
  // "ok: " or "not: " and the message; empty without a reply.
  [[nodiscard]] static QString replyAt(const QString& path) {
    const QVariantMap fields = PropertyList::parse(contentsOf(path)).value_or(QVariant()).toMap();
    if (fields.isEmpty()) return {};
    return (fields[u"ok"_s] == QVariant(true) ? u"ok: "_s : u"not: "_s) +
           fields[u"message"_s].toString();
  }

  const TemporaryTree tree_;
};

// Turns colours into their negatives.
const QByteArray kLUT = contentsOf(QStringLiteral(ODD_CUBES "/plain.cube"));

TEST_F(LUTService, AppliesWhatIsOneOfOurCopiesAndSaysWhyNotOtherwise) {
  ASSERT_TRUE(platform_->exportPanel(*this));
  const QString good = copy(u"Gün batımı.cube"_s, kLUT);
  const QString corrupt = copy(u"corrupt.cube"_s, kLUT + "\n");
  ASSERT_EQ(::truncate(qPrintable(corrupt), kLUT.size()), 0);
  const std::pair<QString, QString> rows[]{
      {good, u"ok: Gün batımı LUT'u Röportaj 1 kaydına uygulandı."_s},
      {copy(u"short.cube"_s, kLUT.first(40)), u". satır"_s},
      {corrupt, u"kopya bozuk"_s},
      // What a property list may not hold.
      {copy(u"\uFEFF\uFEFF\uFEFF.cube"_s, kLUT.first(40)), u"not: "_s},
      {library(QString::fromLatin1(Sha256::of(kLUT).toHex()) + u"/gone.cube"_s), u"yok"_s},
      {tree_.text("Pack/Gün batımı.cube"), u"kitaplığında değil"_s},
      {library(u"../Managed LUTs/x/y.cube"_s), u"kitaplığında değil"_s},
      {library({}), u"LUT'u uygulanamadı"_s},
      {u""_s, u"kitaplığında değil"_s},
  };
  const auto answer = [this](const QString& path) {
    const QString reply = newReply();
    leave(u"A"_s, path, reply);
    EXPECT_EQ(run().exitCode, 0);
    return replyAt(reply);
  };
  for (const auto& [path, outcome] : rows) {
    const QString said = answer(path);
    EXPECT_TRUE(said.contains(outcome)) << path << " → " << said;
    EXPECT_EQ(said.startsWith(u"ok: "), outcome.startsWith(u"ok: "));
  }
  EXPECT_EQ(calls_, QStringList{u"Gün batımı"_s});
  clip_ = QString(300'000, u'x');
  EXPECT_TRUE(answer(good).startsWith(u"ok: Gün batımı LUT'u xxx"));
  qputenv("ORVEX_HOST", "none");
  EXPECT_TRUE(answer(good).startsWith(u"not: Kullanımda bir host yok"));
}

TEST_F(LUTService, RemovesGarbageAndWritesNowhereElse) {
  ASSERT_TRUE(platform_->exportPanel(*this));
  const QString good = copy(u"a.cube"_s, kLUT);
  const QString file = u"apply-result-00000000-0000-4000-8000-000000000000.plist"_s;
  int count = 0;
  for (const QString& reply :
       {tree_.text(file.toUtf8()), library(u"../"_s + file), library(u"apply-result-x.plist"_s),
        library(u"Bridge Requests/"_s + file), good, library(u""_s), file, u""_s})
    leave(QString::number(count++), good, reply);
  leave(u"huge"_s, QByteArray(1 << 20, 'x'));
  leave(u"types"_s, "<plist><dict><key>path</key><true/><key>reply</key><true/></dict></plist>");
  ASSERT_EQ(::mkfifo(qPrintable(requestPath(u"fifo"_s)), 0600), 0);
  QFile::link(u"/dev/zero"_s, requestPath(u"device"_s));
  const QString late = newReply();
  leave(u"late"_s, good, late);
  const timespec old[]{{1, 0}, {1, 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, qPrintable(requestPath(u"late"_s)), old, 0), 0);
  const QString reply = newReply();
  tree_.file("target", "untouched");
  // In the place of the reply, which nobody but the panel knows before.
  QFile::link(tree_.text("target"), reply);
  leave(u"good"_s, good, reply);
  QDir().mkpath(requestPath(u"folder"_s) + u"/inside"_s);

  EXPECT_EQ(run().exitCode, 0);
  EXPECT_EQ(replyAt(reply), u"ok: a LUT'u Röportaj 1 kaydına uygulandı.");
  EXPECT_EQ(tree_.contents("target"), "untouched");
  EXPECT_EQ(calls_.size(), 1);
  EXPECT_FALSE(QFile::exists(tree_.text(file.toUtf8())));
  EXPECT_EQ(QDir(library(u"Bridge Requests"_s))
                .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList{u"request-folder.plist"_s});
  EXPECT_EQ(QDir(library({})).entryList({u"apply-result-*"_s}),
            QStringList{QFileInfo(reply).fileName()});
}

TEST_F(LUTService, TakesEachRequestOnceHoweverManyServe) {
  ASSERT_TRUE(platform_->exportPanel(*this));
  const QString good = copy(u"a.cube"_s, kLUT);
  QStringList replies;
  for (int i = 0; i < 40; ++i) {
    replies.append(newReply());
    leave(QString::number(i), good, replies.last());
  }
  QProcess companions[3];
  for (QProcess& companion : companions) companion.start(QStringLiteral(ORVEX_COMPANION), {});
  const auto hasEnded = [](QProcess& process) { return process.state() == QProcess::NotRunning; };
  EXPECT_TRUE(waitUntil([&] { return std::ranges::all_of(companions, hasEnded); }, 30s));
  EXPECT_EQ(calls_.size(), replies.size());
  for (const QString& reply : replies) EXPECT_TRUE(replyAt(reply).startsWith(u"ok")) << reply;
}

// From the bridge through the companion to the player's picture.
TEST_F(LUTService, ThePlayersPictureChangesAsTheLUTSays) {
  MpvPlayer player({u"av://lavfi:color=c=0x204080:size=64x36:duration=10:rate=25"_s});
  qputenv("ORVEX_HOST", "mpv:" + QFile::encodeName(player.socketPath()));
  // Whether the picture is of about this colour.
  const auto shows = [&](const QColor& colour) {
    player.command({u"screenshot-to-file"_s, tree_.text("picture.png"), u"video"_s});
    const QImage picture(tree_.text("picture.png"));
    if (picture.isNull()) return false;
    const QColor shown = picture.pixelColor(32, 18);
    return std::abs(shown.red() - colour.red()) < 4 &&
           std::abs(shown.green() - colour.green()) < 4 &&
           std::abs(shown.blue() - colour.blue()) < 4;
  };
  ASSERT_TRUE(waitUntil([&] { return shows(QColor(0x20, 0x40, 0x80)); }));
  LUTApplyBridge bridge({platform_->workspace(), platform_->folderAccess(), platform_->log(),
                         QStringLiteral(ORVEX_EXTENSION)});
  QString failure;
  QObject::connect(&bridge, &LUTApplyBridge::failed, [&](const QString& text) { failure = text; });

  tree_.file("Pack/look.cube", contentsOf(QStringLiteral(ODD_CUBES "/domain.cube")));
  bridge.apply(fileUrl(tree_.path("Pack/look.cube")), fileUrl(tree_.path("Pack")));
  ASSERT_TRUE(waitUntil([&] { return !bridge.activePath(); }, 35s));
  EXPECT_TRUE(bridge.lastSucceeded());
  ASSERT_TRUE(bridge.lastResult()) << failure;
  EXPECT_TRUE(bridge.lastResult()->startsWith(u"look LUT'u ")) << *bridge.lastResult();
  EXPECT_TRUE(waitUntil([&] { return shows(QColor(0xDF, 0xBF, 0x7F)); }));
}

}  // namespace
