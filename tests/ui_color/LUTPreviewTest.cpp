#include "base/FileUrl.h"
#include "platform/HostPicture.h"
#include "support/TemporaryTree.h"
#include "support/Wait.h"
#include "ui/color/GradedPicture.h"
#include "ui/color/LUTPreviews.h"
#include "ui/color/PreviewStore.h"

#include <QBuffer>
#include <QDir>

#include <ctime>
#include <gmock/gmock.h>

using namespace orvex;

namespace {

QByteArray oddCube(const QString& name) {
  QFile file(QStringLiteral(ODD_CUBES "/") + name);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return file.readAll();
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

class LUTPreviewWork : public testing::Test {
 protected:
  LUTPreviewResult make(const char* name) { return makeLUTPreview(tree.path(name), source, store); }

  TemporaryTree tree;
  TemporaryTree cache;
  PreviewStore store{cache.text("previews")};
  PreviewSource source = PreviewSource::of(filled(QColor(10, 200, 55), {1000, 300}));
};

TEST_F(LUTPreviewWork, ShowsThePictureAsTheLutMakesItAndKeepsItByContents) {
  tree.file("a.cube", oddCube(QStringLiteral("plain.cube")));
  EXPECT_EQ(make("a.cube"), filled(QColor(245, 55, 200)));
  // What is kept is found again, under any name, and by these contents and this picture only.
  const QDir kept(cache.text("previews"));
  ASSERT_EQ(kept.entryList(QDir::Files).size(), 1);
  QFile file(kept.filePath(kept.entryList(QDir::Files).constFirst()));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(encoded(filled(Qt::red)));
  file.close();
  tree.file("b.cube", oddCube(QStringLiteral("plain.cube")));
  EXPECT_EQ(make("b.cube"), filled(Qt::red));
  tree.file("c.cube", oddCube(QStringLiteral("crlf.cube")));
  EXPECT_EQ(make("c.cube"), filled(QColor(245, 55, 200)));
  source = PreviewSource::of(filled(Qt::white));
  EXPECT_EQ(make("a.cube"), filled(Qt::black));
  // What is there but broken is made again.
  for (const QString& name : kept.entryList(QDir::Files)) {
    QFile broken(kept.filePath(name));
    ASSERT_TRUE(broken.resize(10));
  }
  EXPECT_EQ(make("a.cube"), filled(Qt::black));
}

TEST_F(LUTPreviewWork, SaysWhyThereIsNone) {
  tree.file("bad.cube", oddCube(QStringLiteral("decimal-commas.cube")));
  tree.fifo("fifo.cube");
  tree.folder("folder.cube");
  tree.link("device.cube", "/dev/zero");
  tree.file("huge.cube");
  ASSERT_EQ(::truncate(tree.path("huge.cube").constData(), (64 << 20) + 1), 0);
  const CubeError unreadable{0, QStringLiteral("Dosya okunamadı.")};
  EXPECT_EQ(make("bad.cube").error(),
            readCube(oddCube(QStringLiteral("decimal-commas.cube"))).error());
  for (const char* name : {"fifo.cube", "folder.cube", "device.cube", "missing.cube"})
    EXPECT_EQ(make(name).error(), unreadable) << name;
  EXPECT_EQ(make("huge.cube").error().reason, QStringLiteral("Dosya 64 MiB'tan büyük."));
  // Its colours are clear, but it cannot be handed over.
  tree.file("tabs.cube", oddCube(QStringLiteral("tabs-and-indents.cube")));
  EXPECT_EQ(make("tabs.cube").error().line, 1);
  EXPECT_FALSE(QDir(cache.text("previews")).exists());
}

TEST(PreviewStore, RemembersFilesThatHaveSettled) {
  const TemporaryTree cache;
  PreviewStore store(cache.text("previews"));
  const QByteArray digest(32, 'x');
  const qint64 now = qint64{std::time(nullptr)} * 1'000'000'000;
  const FileIdentity settled{1, 2, 3, now - 5'000'000'000, now - 4'000'000'000};
  FileIdentity touched = settled;
  touched.changed = now;
  store.remember(settled, digest);
  store.remember(touched, digest);
  EXPECT_EQ(store.digest(settled), digest);
  EXPECT_EQ(store.digest(touched), std::nullopt);
}

TEST(PreviewStore, GivesUpWhatWasNotUsedForLongest) {
  const TemporaryTree cache;
  for (const auto& [name, used] : {std::pair("oldest", 1000), {"newest", 3000}, {"middle", 2000}}) {
    cache.file(name, QByteArray(100'000, 'x'));
    const timespec times[2]{{used, 0}, {used, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, cache.path(name).constData(), times, 0), 0);
  }
  PreviewStore(cache.text("."), 290'000).remember({}, QByteArray(32, 'x'));
  const QStringList kept = QDir(cache.text(".")).entryList(QDir::Files);
  EXPECT_THAT(kept, testing::IsSupersetOf({u"newest"_qs, u"middle"_qs}));
  EXPECT_THAT(kept, testing::Not(testing::Contains(u"oldest"_qs)));
}

// A viewer that writes down in which order pictures come.
class Viewer final : public LUTPreviews::Viewer {
 public:
  Viewer(QString viewerName, QStringList& order, bool inView = true)
      : name_(std::move(viewerName)), order_(order), inView_(inView) {}

  void show(const LUTPreviewResult& preview) override {
    order_.append(name_);
    picture = preview.value_or(QImage());
  }
  [[nodiscard]] bool isInView() const override { return inView_; }

  QImage picture;

 private:
  QString name_;
  QStringList& order_;
  bool inView_;
};

class ScriptedHost final : public HostPicture {
 public:
  void take(Taken taken) override { pending = std::move(taken); }
  void answer(const std::optional<QByteArray>& picture) {
    std::exchange(pending, nullptr)(picture);
  }

  Taken pending;
};

class Previews : public testing::Test {
 protected:
  QUrl file(const QByteArray& name) {
    tree.file(name.constData(), oddCube(QStringLiteral("plain.cube")));
    return fileUrl(tree.path(name.constData()));
  }

  TemporaryTree tree;
  TemporaryTree cache;
  ScriptedHost host;
  LUTPreviews previews{std::make_shared<PreviewStore>(cache.text("previews")), &host, 1};
  QStringList order;
};

TEST_F(Previews, ComeInViewOrderNewestViewFirst) {
  Viewer near(QStringLiteral("near"), order, false);
  Viewer first(QStringLiteral("first"), order);
  Viewer second(QStringLiteral("second"), order);
  Viewer third(QStringLiteral("third"), order);
  Viewer later(QStringLiteral("later"), order);
  previews.want(&near, file("near"));
  previews.want(&first, file("first"));
  previews.want(&second, file("second"));
  previews.want(&third, file("third"));
  // The first is on its way now.
  QCoreApplication::processEvents();
  previews.want(&later, file("later"));
  previews.withdraw(&third);
  ASSERT_TRUE(waitUntil([&] { return order.size() == 4; }));
  EXPECT_EQ(order.join(u' '), QStringLiteral("first later second near"));
  // What was made is there at once.
  previews.want(&third, file("second"));
  EXPECT_EQ(order.constLast(), QStringLiteral("third"));
}

TEST_F(Previews, AreMadeAnewOnTheHostsPictureAndWithoutOneOnOurs) {
  Viewer viewer(QStringLiteral("viewer"), order);
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
