#include "base/FileError.h"
#include "base/FileUrl.h"
#include "base/Sha256.h"
#include "lut/CloudLUTPreparation.h"

#include <QThread>

#include <atomic>

using CloudLUTPreparation::PreparationError;
using Kind = PreparationError::Kind;

namespace {

constexpr qint64 kMaximum = 67'108'864;
const QByteArray kLUT = "LUT_3D_SIZE 2\n0 0 0\n";

struct Preparation : testing::Test {
  // Where the copy is below the library, or what was thrown.
  QByteArray prepare(const QByteArray& source, const QByteArray& root = "Pack") {
    try {
      const QUrl copy = CloudLUTPreparation::prepare(
          fileUrl(tree.path(source)), fileUrl(tree.path(root)), fileUrl(tree.path("./library/")));
      return filePath(copy).replace(tree.path("library/"), "");
    } catch (const PreparationError& error) {
      const char* names[] = {"invalidSource", "unsupportedLUT", "copyFailed"};
      EXPECT_FALSE(error.description().isEmpty());
      return names[static_cast<int>(error.kind())];
    } catch (const FileError& error) {
      return "errno " + QByteArray::number(error.code());
    }
  }
  [[nodiscard]] struct stat status(const QByteArray& below) const {
    struct stat status {};
    EXPECT_EQ(::lstat(tree.path(below).constData(), &status), 0) << below.data();
    return status;
  }
  static QByteArray placeOf(const QByteArray& bytes, const QByteArray& name) {
    return Sha256::of(bytes).toHex() + '/' + name;
  }

  TemporaryTree tree;
};

TEST_F(Preparation, TakesOnlyRegularCubeFilesInsideThePack) {
  tree.file("Pack/luts/a.cube", kLUT);
  tree.file("Pack/A.CUBE", kLUT);
  tree.file("Pack/.cube", kLUT);
  tree.file("Pack/a.txt", kLUT);
  tree.file("Pack/empty.cube");
  tree.file("Pack/flat.cube", "LUT_1D_SIZE 2\n");
  tree.folder("Pack/folder.cube");
  tree.fifo("Pack/fifo.cube");
  tree.file("Pack2/a.cube", kLUT);
  tree.link("Pack/out.cube", "../Pack2/a.cube");
  tree.link("Pack/in.cube", "luts/a.cube");
  tree.link("Pack/renamed.cube", "a.txt");
  tree.link("Pack/outside", "../Pack2");
  tree.link("Pack/device.cube", "/dev/zero");
  tree.link("Pack/loop.cube", "loop.cube");
  tree.link("Alias", "Pack");
  tree.file("Pack/name\xFF.cube", kLUT);
  tree.file("Pack/name\U0010FFFF.cube", kLUT);
  const std::pair<QByteArray, QList<QByteArray>> rows[]{
      {placeOf(kLUT, "a.cube"),
       {"Pack/luts/a.cube", "Pack/luts/../luts/./a.cube", "Pack/in.cube", "Alias/luts/a.cube"}},
      {placeOf(kLUT, "A.CUBE"), {"Pack/A.CUBE"}},
      {placeOf(kLUT, "name\xFF.cube"), {"Pack/name\xFF.cube"}},
      {placeOf(kLUT, "name\U0010FFFF.cube"), {"Pack/name\U0010FFFF.cube"}},
      {"invalidSource",
       {"Pack", "Pack/.cube", "Pack/a.txt", "Pack/empty.cube", "Pack/folder.cube", "Pack/fifo.cube",
        "Pack/out.cube", "Pack/outside/a.cube", "Pack/device.cube", "Pack/renamed.cube",
        "Pack2/a.cube", "Pack/../Pack2/a.cube"}},
      {"unsupportedLUT", {"Pack/flat.cube"}},
      {"errno " + QByteArray::number(ELOOP), {"Pack/loop.cube"}},
      {"errno " + QByteArray::number(ENOENT), {"Pack/gone.cube"}},
  };
  for (const auto& [result, sources] : rows)
    for (const QByteArray& source : sources)
      for (const char* root : {"Pack", "Pack/", "Alias"})
        EXPECT_EQ(prepare(source, root).toPercentEncoding(), result.toPercentEncoding())
            << source.constData();
}

TEST_F(Preparation, KeepsToTheSizeLimitEvenOfFilesThatAreMostlyHoles) {
  tree.file("Pack/large.cube", kLUT);
  for (const qint64 size : {kMaximum, kMaximum + 1, qint64{1} << 40}) {
    ASSERT_EQ(::truncate(tree.path("Pack/large.cube").constData(), size), 0);
    const QByteArray result = prepare("Pack/large.cube");
    EXPECT_EQ(result.endsWith("/large.cube"), size == kMaximum) << result.constData();
  }
}

TEST_F(Preparation, FindsTheSizeLineAmongAllNewlinesAndSpaces) {
  QStringList spaces = u" |\t|\u00A0|\u1680|\u202F|\u205F|\u3000"_s.split(u'|');
  for (char16_t space = 0x2000; space <= 0x200A; ++space) spaces.append(QString(space));
  // With each of the characters where the tilde stands: what is accepted, and what is not.
  const std::tuple<QStringList, QByteArrayList, QByteArrayList> rows[]{
      {u"\n|\r|\r\n|\v|\f|\u0085|\u2028|\u2029"_s.split(u'|'),
       {"TITLE x~LUT_3D_SIZE 2~"},
       {"LUT_3D_SIZE ~2", "LUT_3D_SIZE~ 2"}},
      {spaces,
       {"TITLE x\n~ ~LUT_3D_SIZE 2", "~LUT_3D_SIZE x", "LUT_3D_SIZE ~2"},
       {"LUT_3D_SIZE ~", "LUT_3D_SIZE ~\n2", "#~LUT_3D_SIZE 2"}},
      // Not spaces, not newlines, not UTF-8; the mark is no part of the text.
      {{u"~"_s},
       {"\uFEFFLUT_3D_SIZE 33", kLUT + QByteArray(1, '\0'),
        "LUT_3D_SIZE \nLUT_3D_SIZE LUT_3D_SIZE 2"},
       {"LUT_3D_SIZE\t33", "lut_3d_size 33", "LUT_1D_SIZE 33", "\u200BLUT_3D_SIZE 33",
        "\x1CLUT_3D_SIZE 33", kLUT + "# \xE9t\xE9"}}};
  for (const auto& [characters, good, bad] : rows)
    for (const QString& character : characters)
      for (const QByteArray& form : good + bad) {
        const QByteArray text = QByteArray(form).replace("~", character.toUtf8());
        EXPECT_EQ(CloudLUTPreparation::isThreeDimensional(text), good.contains(form))
            << text.toPercentEncoding(" ").constData();
      }
}

TEST_F(Preparation, ASecondTimeWritesNothing) {
  tree.file("Pack/a.cube", kLUT);
  tree.file("Pack/b.cube", kLUT);
  const QByteArray first = prepare("Pack/a.cube");
  EXPECT_EQ(tree.contents("library/" + first), kLUT);
  const struct stat before = status("library/" + first);
  QThread::msleep(20);
  EXPECT_EQ(prepare("Pack/a.cube"), first);
  EXPECT_EQ(status("library/" + first).st_ino, before.st_ino);
  EXPECT_EQ(status("library/" + first).st_mtim.tv_nsec, before.st_mtim.tv_nsec);
  // The same bytes under another name lie beside them.
  EXPECT_EQ(prepare("Pack/b.cube"), placeOf(kLUT, "b.cube"));
  EXPECT_EQ(tree.names("library/" + first.left(64)).join(u' '), u"a.cube b.cube");
}

TEST_F(Preparation, ReplacesACopyThatIsNotTheSource) {
  tree.file("Pack/a.cube", kLUT);
  const QByteArray place = "library/" + placeOf(kLUT, "a.cube");
  const std::function<void()> plants[]{
      [&] { tree.file(place, QByteArray(kLUT).replace('0', '1')); },
      [&] { tree.file(place, kLUT.chopped(1)); },
      [&] { tree.file(place, kLUT + ' '); },
      [&] { tree.link(place, tree.path("Pack/a.cube")); },
      [&] { tree.fifo(place); },
  };
  prepare("Pack/a.cube");
  for (const auto& plant : plants) {
    ::unlink(tree.path(place).constData());
    plant();
    EXPECT_EQ("library/" + prepare("Pack/a.cube"), place);
    EXPECT_EQ(tree.contents(place), kLUT);
    EXPECT_TRUE(S_ISREG(status(place).st_mode));
  }
  ::unlink(tree.path(place).constData());
  tree.folder(place);
  EXPECT_EQ(prepare("Pack/a.cube"), "errno " + QByteArray::number(EISDIR));
  // A link in place of a folder of ours is not written through.
  std::filesystem::remove_all(tree.path("library").toStdString());
  tree.link("library/" + placeOf(kLUT, {}).chopped(1), tree.path("Pack"));
  EXPECT_EQ(prepare("Pack/a.cube"), "errno " + QByteArray::number(ENOTDIR));
}

// Whatever becomes of the source meanwhile, the copy lies under the digest of the bytes it holds.
TEST_F(Preparation, WhatWasCheckedIsWhatIsCopiedWhileTheSourceChanges) {
  tree.file("Pack/a.cube", kLUT + QByteArray(1 << 18, '1'));
  std::atomic<bool> stop = false;
  std::thread changer([&] {
    const QByteArray path = tree.path("Pack/a.cube");
    for (int i = 0; !stop; ++i) {
      tree.file("Pack/new", kLUT + QByteArray((1 << 18) + i % 7, static_cast<char>('a' + i % 3)));
      std::rename(tree.path("Pack/new").constData(), path.constData());
      std::ignore = ::truncate(path.constData(), 1 << 16);
      std::ignore = ::truncate(path.constData(), 1 << 19);
    }
  });
  int copies = 0;
  for (int i = 0; i < 200; ++i) copies += prepare("Pack/a.cube").endsWith("/a.cube") ? 1 : 0;
  stop = true;
  changer.join();
  EXPECT_GT(copies, 0);
  for (const QString& digest : tree.names("library"))
    EXPECT_EQ(placeOf(tree.contents("library/" + digest.toLatin1() + "/a.cube"), {}).chopped(1),
              digest.toLatin1());
}

}  // namespace
