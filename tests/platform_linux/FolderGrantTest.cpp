#include "base/FileUrl.h"
#include "platform/FolderAccess.h"
#include "platform/Platform.h"
#include "platform/linux/FolderGrant.h"
#include "support/PrivateSession.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QTemporaryDir>
#include <QThread>

#include <sys/stat.h>
#include <unistd.h>

using namespace orvex;

namespace {

class FolderGrants : public PrivateSession {
 protected:
  [[nodiscard]] QByteArray at(const char* name) const {
    return QFile::encodeName(folder_.path()) + '/' + name;
  }
  void make(const char* name) const { ASSERT_EQ(::mkdir(at(name).constData(), 0700), 0) << name; }
  void makeFile(const char* name) const {
    ASSERT_EQ(::mknod(at(name).constData(), S_IFREG | 0600, 0), 0) << name;
  }
  void rename(const char* from, const char* to) const {
    ASSERT_EQ(::rename(at(from).constData(), at(to).constData()), 0);
  }
  [[nodiscard]] QByteArray grant(const char* name) {
    return access_.makeGrant(fileUrl(at(name))).value_or(QByteArray());
  }
  // The path resolved to, with "*" behind it when it is stale; empty for an error.
  [[nodiscard]] QByteArray resolve(const QByteArray& bytes) {
    const auto resolved = access_.resolveGrant(bytes);
    return resolved ? filePath(resolved->url) + (resolved->stale ? "*" : "") : QByteArray();
  }
  const QTemporaryDir folder_;
  const std::unique_ptr<Platform> platform_ = makePlatform();
  FolderAccess& access_ = platform_->folderAccess();
};

TEST_F(FolderGrants, LeadBackToTheFolderInALaterProcess) {
  for (const char* name : {"with space %41#?&é ı İ\n", "raw \xff\xfe"}) {
    make(name);
    const QByteArray bytes = grant(name);
    EXPECT_EQ(resolve(bytes).toStdString(), at(name).toStdString());
    EXPECT_EQ(makePlatform()->folderAccess().resolveGrant(bytes)->url, fileUrl(at(name)));
    // Not left to the folder's own cleaning up, which knows no names that are no text.
    ASSERT_EQ(::rmdir(at(name).constData()), 0);
  }
  makeFile("file");
  for (const QUrl& url : {fileUrl(at("file")), QUrl(QStringLiteral("file://elsewhere/tmp"))})
    EXPECT_FALSE(access_.makeGrant(url)) << qPrintable(url.toString());
}

TEST_F(FolderGrants, FollowTheFolderThroughWhatHappensToIt) {
  make("folder");
  make("other");
  ASSERT_EQ(::symlink("folder", at("link").constData()), 0);
  const QByteArray bytes = grant("link");
  EXPECT_EQ(resolve(bytes), at("folder")) << "a chosen link is the folder that it led to";

  rename("folder", "renamed");
  // A file system that keeps no time of birth does not tell.
  const bool isDated = FolderIdentity::of(at(""))->birth != 0;
  EXPECT_EQ(resolve(bytes), isDated ? at("renamed") + "*" : "");

  make("folder");
  EXPECT_EQ(resolve(bytes), at("folder") + "*") << "another folder has its place";

  ASSERT_EQ(::rmdir(at("folder").constData()), 0);
  ASSERT_EQ(::symlink("renamed", at("folder").constData()), 0);
  EXPECT_EQ(resolve(bytes), at("folder")) << "a link to where it went";
  ASSERT_EQ(::unlink(at("folder").constData()), 0);

  rename("renamed", "other/folder");
  EXPECT_EQ(resolve(bytes), "") << "moved out of sight";
  makeFile("folder");
  EXPECT_EQ(resolve(bytes), "") << "a file has its place";
}

// A folder made after another was removed is often given the same inode.
TEST_F(FolderGrants, AYoungerFolderDoesNotPassForARemovedOne) {
  make("folder");
  // File systems date what they make by a clock that stands still for some milliseconds.
  QThread::msleep(20);
  const QByteArray bytes = grant("folder");
  for (int i = 0; i < 50; ++i) {
    ASSERT_EQ(::rmdir(at(i == 0 ? "folder" : "younger").constData()), 0);
    make("younger");
    ASSERT_EQ(resolve(bytes), "");
  }
  rename("younger", "folder");
  EXPECT_EQ(resolve(bytes), at("folder") + "*");
}

TEST_F(FolderGrants, BytesThatAreDamagedOrNotOursResolveToNothing) {
  make("folder");
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
