#include "base/FileUrl.h"
#include "platform/HostPicture.h"
#include "ui/color/GradedPicture.h"
#include "ui/color/LUTPreviews.h"
#include "ui/color/PreviewStore.h"

#include <QBuffer>

#include <ctime>

namespace {

QByteArray oddCube(const QString& name) {
  return contentsOf(QStringLiteral(ODD_CUBES "/") + name);
}

QImage filled(QColor colour, const QSize& size = kPreviewSize) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(colour);
  return image;
}

QByteArray encoded(const QImage& image) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  EXPECT_TRUE(image.save(&buffer, "PNG"));
  return bytes;
}

struct LUTPreviewWork : testing::Test {
  LUTPreviewResult make(const char* name) { return makeLUTPreview(tree.path(name), source, store); }

  TemporaryTree tree;
  TemporaryTree cache;
  PreviewStore store{cache.text("previews")};
  PreviewSource source = PreviewSource::of(filled(QColor(10, 200, 55), {1000, 300}));
};

TEST_F(LUTPreviewWork, ShowsThePictureAsTheLutMakesItAndKeepsItByContents) {
  tree.file("a.cube", oddCube(u"plain.cube"_s));
  EXPECT_EQ(make("a.cube"), filled(QColor(245, 55, 200)));
  // What is kept is found again, under any name, and by these contents and this picture only.
  ASSERT_EQ(cache.names("previews").size(), 1);
  cache.file("previews/" + cache.names("previews").value(0).toUtf8(), encoded(filled(Qt::red)));
  tree.file("b.cube", oddCube(u"plain.cube"_s));
  EXPECT_EQ(make("b.cube"), filled(Qt::red));
  tree.file("c.cube", oddCube(u"crlf.cube"_s));
  EXPECT_EQ(make("c.cube"), filled(QColor(245, 55, 200)));
  source = PreviewSource::of(filled(Qt::white));
  EXPECT_EQ(make("a.cube"), filled(Qt::black));
  // What is there but broken is made again.
  for (const QString& name : cache.names("previews")) cache.file("previews/" + name.toUtf8(), "x");
  EXPECT_EQ(make("a.cube"), filled(Qt::black));
}

TEST_F(LUTPreviewWork, SaysWhyThereIsNone) {
  tree.file("bad.cube", oddCube(u"decimal-commas.cube"_s));
  EXPECT_EQ(
      make("bad.cube").error(),
      (LUTPreviewError{u"Satır 2: "_s + readCube(oddCube(u"decimal-commas.cube"_s)).error().reason,
                       true}));
  tree.fifo("fifo.cube");
  tree.link("device.cube", "/dev/zero");
  for (const char* name : {"fifo.cube", "device.cube", "missing.cube"})
    EXPECT_EQ(make(name).error(), (LUTPreviewError{u"Dosya okunamadı."_s, false})) << name;
  tree.file("huge.cube");
  ASSERT_EQ(::truncate(tree.path("huge.cube").constData(), (64 << 20) + 1), 0);
  EXPECT_EQ(make("huge.cube").error().reason, u"Dosya 64 MiB'tan büyük."_s);
  // Its colours are clear, but it cannot be handed over.
  tree.file("tabs.cube", oddCube(u"tabs-and-indents.cube"_s));
  EXPECT_EQ(make("tabs.cube").error().reason.left(8), u"Satır 1:"_s);
  EXPECT_TRUE(cache.names(".").isEmpty());
}

TEST(PreviewStore, RemembersFilesThatHaveSettledAndGivesUpWhatWasNotUsedForLongest) {
  const TemporaryTree cache;
  PreviewStore store(cache.text("."), 290'000);
  for (const auto& [name, used] : {std::pair("oldest", 1000), {"newest", 3000}, {"middle", 2000}}) {
    cache.file(name, QByteArray(100'000, 'x'));
    const timespec times[2]{{used, 0}, {used, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, cache.path(name).constData(), times, 0), 0);
  }
  const QByteArray digest(32, 'x');
  const qint64 now = qint64{std::time(nullptr)} * 1'000'000'000;
  const FileIdentity settled{1, 2, 3, now - 5'000'000'000, now - 4'000'000'000};
  FileIdentity touched = settled;
  touched.changed = now;
  store.remember(settled, digest);
  store.remember(touched, digest);
  EXPECT_EQ(store.digest(settled), digest);
  EXPECT_EQ(store.digest(touched), std::nullopt);
  EXPECT_THAT(cache.names("."), testing::IsSupersetOf({u"newest"_s, u"middle"_s}));
  EXPECT_FALSE(cache.names(".").contains(u"oldest"));
}

// A viewer that writes down in which order pictures come.
struct Viewer final : LUTPreviews::Viewer {
  Viewer(const QString& itsName, QStringList& itsOrder, bool isSeen = true)
      : name(itsName), order(itsOrder), inView(isSeen) {}
  void show(const LUTPreviewResult& preview) override {
    order.append(name);
    picture = preview.value_or(QImage());
  }
  [[nodiscard]] bool isInView() const override { return inView; }

  QString name;
  QStringList& order;
  bool inView;
  QImage picture;
};

struct ScriptedHost final : HostPicture {
  void take(Taken taken) override { pending = std::move(taken); }
  void answer(const std::optional<QByteArray>& picture) {
    std::exchange(pending, nullptr)(picture);
  }

  Taken pending;
};

struct Previews : testing::Test {
  QUrl file(const QByteArray& name) {
    tree.file(name.constData(), oddCube(u"plain.cube"_s));
    return fileUrl(tree.path(name.constData()));
  }

  TemporaryTree tree;
  TemporaryTree cache;
  ScriptedHost host;
  LUTPreviews previews{std::make_shared<PreviewStore>(cache.text("previews")), &host, 1, 1};
  QStringList order;
};

TEST_F(Previews, ComeInViewOrderNewestViewFirst) {
  Viewer near(u"near"_s, order, false);
  Viewer first(u"first"_s, order);
  Viewer second(u"second"_s, order);
  Viewer third(u"third"_s, order);
  Viewer later(u"later"_s, order);
  previews.want(&near, file("near"));
  previews.want(&first, file("first"));
  previews.want(&second, file("second"));
  previews.want(&third, file("third"));
  // The first is on its way now.
  QCoreApplication::processEvents();
  previews.want(&later, file("later"));
  previews.withdraw(&third);
  ASSERT_TRUE(waitUntil([&] { return order.size() == 4; }));
  EXPECT_EQ(order.join(u' '), u"first later second near"_s);
  // What was made is there at once.
  previews.want(&third, file("second"));
  EXPECT_EQ(order.constLast(), u"third"_s);
}

TEST_F(Previews, AreTriedAgainWhereTheContentsWereNotToBlame) {
  Viewer viewer(u"viewer"_s, order);
  const QUrl late = fileUrl(tree.path("late"));
  previews.want(&viewer, late);
  ASSERT_TRUE(waitUntil([&] { return order.size() == 1; }));
  EXPECT_TRUE(viewer.picture.isNull());
  previews.want(&viewer, file("late"));
  EXPECT_TRUE(waitUntil([&] { return !viewer.picture.isNull(); }));
}

TEST_F(Previews, AreMadeAnewOnTheHostsPictureAndWithoutOneOnOurs) {
  Viewer viewer(u"viewer"_s, order);
  const QUrl lut = file("a");
  QObject::connect(&previews, &LUTPreviews::changed, [&] { previews.want(&viewer, lut); });
  previews.want(&viewer, lut);
  ASSERT_TRUE(waitUntil([&] { return order.size() == 1; }));
  const QImage onOurs = viewer.picture;
  EXPECT_FALSE(previews.isFromHost());

  previews.refreshSource();
  host.answer(encoded(filled(QColor(0, 0, 255), {64, 36})));
  ASSERT_TRUE(waitUntil([&] { return order.size() == 2; }));
  EXPECT_TRUE(previews.isFromHost());
  EXPECT_EQ(viewer.picture, filled(QColor(255, 255, 0)));
  // The same frame again is no news; none, or one that is no picture, is.
  previews.refreshSource();
  host.answer(encoded(filled(QColor(0, 0, 255), {64, 36})));
  previews.refreshSource();
  host.answer(QByteArray("no picture"));
  ASSERT_TRUE(waitUntil([&] { return order.size() == 3; }));
  EXPECT_FALSE(previews.isFromHost());
  EXPECT_EQ(viewer.picture, onOurs);
}

}  // namespace
