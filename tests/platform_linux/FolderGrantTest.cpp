#include "base/DescribedError.h"
#include "base/FileUrl.h"
#include "platform/FolderAccess.h"
#include "platform/Platform.h"
#include "platform/linux/FolderGrant.h"
#include "support/PrivateSession.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QThread>

namespace {

struct FolderGrantTest : PrivateSession {
  void rename(const char* from, const char* to) const {
    ASSERT_EQ(::rename(tree_.path(from).constData(), tree_.path(to).constData()), 0);
  }
  [[nodiscard]] QByteArray grant(const char* name) {
    return grants_->makeGrant(fileUrl(tree_.path(name)));
  }
  // The path resolved to, with "*" behind it when it is stale; empty for an error.
  [[nodiscard]] QByteArray resolve(const QByteArray& bytes) try {
    const FolderGrants::Resolved resolved = grants_->resolveGrant(bytes);
    return filePath(resolved.url) + (resolved.stale ? "*" : "");
  } catch (const DescribedError&) {
    return {};
  }
  const TemporaryTree tree_;
  const std::unique_ptr<Platform> platform_ = makePlatform();
  const std::shared_ptr<FolderGrants> grants_ = platform_->folderAccess().grants();
};

TEST_F(FolderGrantTest, LeadBackToTheFolderInALaterProcess) {
  for (const char* name : {"with space %41#?&é ı İ\n", "raw \xff\xfe"}) {
    tree_.folder(name);
    const QByteArray bytes = grant(name);
    EXPECT_EQ(resolve(bytes).toStdString(), tree_.path(name).toStdString());
    EXPECT_EQ(makePlatform()->folderAccess().grants()->resolveGrant(bytes).url,
              fileUrl(tree_.path(name)));
  }
  tree_.file("file");
  for (const auto& [url, fault] : {std::pair(fileUrl(tree_.path("file")), "bir klasör değil"),
                                   {fileUrl(tree_.path("none")), "açılamadı"},
                                   {QUrl(u"file://elsewhere/tmp"_s), "bu bilgisayarda"}})
    EXPECT_THAT([&] { std::ignore = grants_->makeGrant(url); },
                testing::ThrowsMessage<DescribedError>(testing::HasSubstr(fault)));
}

TEST_F(FolderGrantTest, FollowTheFolderThroughWhatHappensToIt) {
  tree_.folder("folder");
  tree_.folder("other");
  tree_.link("link", "folder");
  const QByteArray bytes = grant("link");
  EXPECT_EQ(resolve(bytes), tree_.path("folder")) << "a chosen link is the folder that it led to";

  rename("folder", "renamed");
  // A file system that keeps no time of birth does not tell.
  const bool isDated = FolderIdentity::of(tree_.path(""))->birth != 0;
  EXPECT_EQ(resolve(bytes), isDated ? tree_.path("renamed") + "*" : "");

  tree_.folder("folder");
  EXPECT_EQ(resolve(bytes), tree_.path("folder") + "*") << "another folder has its place";

  ASSERT_EQ(::rmdir(tree_.path("folder").constData()), 0);
  tree_.link("folder", "renamed");
  EXPECT_EQ(resolve(bytes), tree_.path("folder")) << "a link to where it went";
  ASSERT_EQ(::unlink(tree_.path("folder").constData()), 0);

  rename("renamed", "other/folder");
  EXPECT_EQ(resolve(bytes), "") << "moved out of sight";
  tree_.file("folder");
  EXPECT_EQ(resolve(bytes), "") << "a file has its place";
}

// A folder made after another was removed is often given the same inode.
TEST_F(FolderGrantTest, AYoungerFolderDoesNotPassForARemovedOne) {
  tree_.folder("folder");
  // File systems date what they make by a clock that stands still for some milliseconds.
  QThread::msleep(20);
  const QByteArray bytes = grant("folder");
  for (int i = 0; i < 50; ++i) {
    ASSERT_EQ(::rmdir(tree_.path(i == 0 ? "folder" : "younger").constData()), 0);
    tree_.folder("younger");
    ASSERT_EQ(resolve(bytes), "");
  }
  rename("younger", "folder");
  EXPECT_EQ(resolve(bytes), tree_.path("folder") + "*");
}

TEST_F(FolderGrantTest, BytesThatAreDamagedOrNotOursResolveToNothing) {
  tree_.folder("folder");
  const QByteArray bytes = grant("folder");
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    ASSERT_EQ(resolve(bytes.first(i)), "") << i;
    QByteArray flipped = bytes;
    flipped[i] = static_cast<char>(flipped[i] ^ 1);
    ASSERT_EQ(resolve(flipped), "") << i;
  }

  // Whole, and right in everything but the one fault.
  for (const auto& [magic, path] :
       std::initializer_list<std::pair<quint32, QByteArray>>{{0x4f52'5647, "/tmp"},
                                                             {0, "/tmp"},
                                                             {0x4f52'5647, "/tmp/../etc"},
                                                             {0x4f52'5647, "tmp"}}) {
    QByteArray body;
    QDataStream stream(&body, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    stream << magic << quint8{1} << quint64{1} << quint64{1} << qint64{1} << path;
    const QByteArray digest = QCryptographicHash::hash(body, QCryptographicHash::Sha256);
    EXPECT_EQ(resolve(digest + body), magic != 0 && path == "/tmp" ? "/tmp*" : "") << path.data();
  }
}

}  // namespace
