// The companion as the helper of the LUT bridge, on a real bus and beside a real player.
#include "base/FileUrl.h"
#include "base/PropertyList.h"
#include "base/Sha256.h"
#include "lut/CloudLUTPreparation.h"
#include "lut/CubeLattice.h"
#include "lut/LUTApplyBridge.h"
#include "platform/PanelEndpoint.h"
#include "platform/Platform.h"
#include "support/MpvPlayer.h"
#include "support/PrivateSession.h"
#include "support/Program.h"
#include "support/TemporaryTree.h"

#include <QImage>
#include <QUuid>

#include <cmath>
#include <sys/stat.h>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

// A look with all colours bent, for inputs from `low` to `high`.
QByteArray cube(int size, float low, float high, const QByteArray& tail) {
  QByteArray text = "LUT_3D_SIZE " + QByteArray::number(size) + "\r\n";
  const auto input = [&](int i) {
    return low + (high - low) * static_cast<float>(i) / static_cast<float>(size - 1);
  };
  for (int b = 0; b < size; ++b)
    for (int g = 0; g < size; ++g)
      for (int r = 0; r < size; ++r)
        text += "\t" + QByteArray::number(std::sqrt(std::max(input(r), 0.0F)), 'f', 6) + " " +
                QByteArray::number(0.2F + 0.6F * input(g) * input(r), 'f', 6) + "  " +
                QByteArray::number(1 - input(b), 'f', 6) + "\r\n";
  return text + tail;
}

class LUTService : public PrivateSession, protected PanelEndpoint {
 protected:
  LUTService() { qunsetenv("ORVEX_HOST"); }

  bool focusPanel() override { return true; }
  QString hostInUse() override { return u"builtin:25"_s; }
  bool performOnBuiltInHost(const QString&) override { return false; }
  QString applyLUTOnBuiltInHost(const QString& name) override {
    applied_.append(name);
    return clip_;
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
    QDir().mkpath(library(u"Bridge Requests"_s));
    return library(u"Bridge Requests/request-%1.plist"_s.arg(name));
  }
  void leave(const QString& name, const QByteArray& bytes) const {
    QFile file(requestPath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  void leave(const QString& name, const QString& path, const QString& reply) const {
    leave(name, PropertyList::binary({{u"path"_s, path}, {u"reply"_s, reply}}).value());
  }
  // "ok: " or "not: " and the message; empty without a reply.
  [[nodiscard]] static QString replyAt(const QString& path) {
    const QVariantMap fields = PropertyList::parse(contents(path)).value_or(QVariant()).toMap();
    if (fields.isEmpty()) return {};
    return (fields[u"ok"_s] == QVariant(true) ? u"ok: "_s : u"not: "_s) +
           fields[u"message"_s].toString();
  }
  [[nodiscard]] static ProgramResult serve() {
    return runProgram(QStringLiteral(ORVEX_COMPANION), {});
  }

  const TemporaryTree tree_;
  const std::unique_ptr<Platform> platform_ = makePlatform();
  QStringList applied_;
  QString clip_ = u"Röportaj 1"_s;
};

const QByteArray kLUT = cube(2, 0, 1, "");

TEST_F(LUTService, AppliesWhatIsOneOfOurCopiesAndSaysWhyNotOtherwise) {
  ASSERT_TRUE(platform_->exportPanel(*this));
  const QString good = copy(u"Gün batımı.cube"_s, kLUT);
  const QString corrupt = copy(u"corrupt.cube"_s, kLUT + "\n");
  QFile file(corrupt);
  ASSERT_TRUE(file.open(QIODevice::Append));
  file.write("#");
  file.close();
  tree_.link("link.cube", tree_.path("Pack/Gün batımı.cube"));
  const std::pair<QString, QString> rows[]{
      {good, u"ok: Gün batımı LUT'u Röportaj 1 kaydına uygulandı."_s},
      {copy(u"short.cube"_s, kLUT.first(40)), u"satır"_s},
      {copy(u"nan.cube"_s, kLUT + "nan 0 0\n"), u". satır"_s},
      {corrupt, u"kopya bozuk"_s},
      {library(QString::fromLatin1(Sha256::of(kLUT).toHex()) + u"/gone.cube"_s), u"yok"_s},
      {tree_.text("Pack/Gün batımı.cube"), u"kitaplığında değil"_s},
      {library(u"../Managed LUTs/x/y.cube"_s), u"kitaplığında değil"_s},
      {library(u"../x.cube"_s), u"LUT'u uygulanamadı"_s},
      {library({}), u"LUT'u uygulanamadı"_s},
      {u"Gün batımı.cube"_s, u"kitaplığında değil"_s},
      {u""_s, u"kitaplığında değil"_s},
  };
  for (const auto& [path, outcome] : rows) {
    const QString reply = newReply();
    leave(u"A"_s, path, reply);
    EXPECT_EQ(serve().exitCode, 0);
    const QString said = replyAt(reply);
    EXPECT_TRUE(said.contains(outcome)) << path << " → " << said;
    EXPECT_EQ(said.startsWith(u"ok: "), outcome.startsWith(u"ok: "));
  }
  EXPECT_EQ(applied_, QStringList{u"Gün batımı"_s});
  clip_ = QString(300'000, u'x');
  const QString longReply = newReply();
  leave(u"A"_s, good, longReply);
  EXPECT_EQ(serve().exitCode, 0);
  EXPECT_TRUE(replyAt(longReply).startsWith(u"ok: Gün batımı LUT'u xxx"));
  qputenv("ORVEX_HOST", "none");
  const QString reply = newReply();
  leave(u"A"_s, good, reply);
  EXPECT_EQ(serve().exitCode, 0);
  EXPECT_TRUE(replyAt(reply).startsWith(u"not: Kullanımda bir host yok"));
}

TEST_F(LUTService, RemovesGarbageAndWritesNowhereElse) {
  ASSERT_TRUE(platform_->exportPanel(*this));
  const QString good = copy(u"a.cube"_s, kLUT);
  const QString outside = tree_.text("apply-result-00000000-0000-4000-8000-000000000000.plist");
  const QString badReplies[]{outside,
                             library(u"../"_s) + QFileInfo(outside).fileName(),
                             library(u"apply-result-x.plist"_s),
                             library(u"apply-result-.plist"_s),
                             library(u"Bridge Requests/"_s) + QFileInfo(outside).fileName(),
                             good,
                             library(u""_s),
                             QFileInfo(outside).fileName(),
                             u""_s};
  int count = 0;
  for (const QString& reply : badReplies) leave(QString::number(count++), good, reply);
  leave(u"huge"_s, QByteArray(1 << 20, 'x'));
  leave(u"empty"_s, "");
  leave(u"cyclic"_s, QByteArray("bplist00\xA1\x00\x08", 11) + QByteArray(6, '\0') + "\1\1" +
                         QByteArray(7, '\0') + '\1' + QByteArray(15, '\0') + '\x0A');
  leave(u"types"_s, "<plist><dict><key>path</key><true/><key>reply</key><true/></dict></plist>");
  leave(u"array"_s, "<plist><array/></plist>");
  ASSERT_EQ(::mkfifo(qPrintable(requestPath(u"fifo"_s)), 0600), 0);
  QFile::link(u"/dev/zero"_s, requestPath(u"device"_s));
  QFile::link(good, requestPath(u"link"_s));
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

  const ProgramResult result = serve();
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(replyAt(reply), u"ok: a LUT'u Röportaj 1 kaydına uygulandı.");
  EXPECT_EQ(contents(tree_.text("target")), "untouched");
  EXPECT_EQ(replyAt(late), QString());
  EXPECT_EQ(applied_.size(), 1);
  EXPECT_FALSE(QFile::exists(outside));
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
  EXPECT_TRUE(waitUntil(
      [&] {
        return std::ranges::all_of(
            companions, [](QProcess& process) { return process.state() == QProcess::NotRunning; });
      },
      std::chrono::seconds(30)));
  EXPECT_EQ(applied_.size(), replies.size());
  for (const QString& reply : replies) EXPECT_TRUE(replyAt(reply).startsWith(u"ok")) << reply;
}

// How far apart two pictures are on average, of 1.
double difference(const QImage& one, const QImage& other,
                  const std::function<Rgb(const Rgb&)>& map) {
  if (one.size() != other.size()) return 1;
  const auto colourAt = [](const QImage& image, int x, int y) {
    const QColor colour = image.pixelColor(x, y);
    return Rgb{colour.redF(), colour.greenF(), colour.blueF()};
  };
  double sum = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const Rgb mapped = map(colourAt(one, x, y));
      const Rgb shown = colourAt(other, x, y);
      for (std::size_t i = 0; i < 3; ++i)
        sum += std::abs(shown[i] - std::clamp(mapped[i], 0.0F, 1.0F));
    }
  }
  return sum / (3.0 * one.width() * one.height());
}

// From the bridge through the companion to the player's picture.
TEST_F(LUTService, ThePlayersPictureChangesAsTheLUTSays) {
  // The same way from the file's colours to red, green and blue with and without the LUT.
  MpvPlayer player({testClip(u"25"_s), u"--vf=format=rgb24"_s});
  qputenv("ORVEX_HOST", "mpv:" + QFile::encodeName(player.socketPath()));
  const auto picture = [&] {
    player.command({u"screenshot-to-file"_s, tree_.text("picture.png"), u"video"_s});
    return QImage(tree_.text("picture.png"));
  };
  QImage before;
  ASSERT_TRUE(waitUntil([&] { return !(before = picture()).isNull(); }));
  LUTApplyBridge bridge({platform_->workspace(), platform_->folderAccess(), platform_->log(),
                         QStringLiteral(ORVEX_EXTENSION)});
  QString failure;
  QObject::connect(&bridge, &LUTApplyBridge::failed, [&](const QString& text) { failure = text; });

  const auto apply = [&](const QString& name, const QByteArray& text) {
    tree_.file("Pack/" + name.toUtf8(), text);
    bridge.apply(fileUrl(tree_.path("Pack/" + name.toUtf8())), fileUrl(tree_.path("Pack")));
    ASSERT_TRUE(waitUntil([&] { return !bridge.activePath(); }, std::chrono::seconds(35)));
  };
  const auto expectShown = [&](const QString& name, const CubeLattice& lattice) {
    EXPECT_TRUE(bridge.lastSucceeded()) << name << ": " << bridge.lastResult().value_or(failure);
    double error = 1;
    EXPECT_TRUE(waitUntil([&] {
      error = difference(before, picture(), [&](const Rgb& in) { return lattice.apply(in); });
      return error < 1.0 / 255;
    })) << name
        << ": " << error * 255;
  };
  const QByteArray look =
      cube(17, -0.5F, 1.5F, "DOMAIN_MIN -0.5 -0.5 -0.5\r\nDOMAIN_MAX 1.5 1.5 1.5\r\n");
  apply(u"look.cube"_s, look);
  EXPECT_TRUE(bridge.lastResult()->startsWith(u"look LUT'u ")) << *bridge.lastResult();
  expectShown(u"look"_s, *readCube(look));
  EXPECT_GT(difference(before, picture(), [](const Rgb& in) { return in; }), 20.0 / 255);

  // What this program can read, and the bridge takes, is shown as it is meant.
  int shown = 0;
  for (const QFileInfo& odd : QDir(QStringLiteral(ODD_CUBES)).entryInfoList({u"*.cube"_s})) {
    const QByteArray text = contents(odd.filePath());
    const auto lattice = readCube(text);
    if (!lattice) continue;
    failure.clear();
    apply(odd.fileName(), text);
    if (!failure.isEmpty()) continue;
    expectShown(odd.fileName(), *lattice);
    ++shown;
  }
  EXPECT_EQ(shown, 13);
}

}  // namespace
