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
    const auto bytes = access_.makeGrant(fileUrl(at(name)));
    EXPECT_TRUE(bytes) << qPrintable(bytes.error());
    return bytes.value_or(QByteArray());
  }
  // The path resolved to, with "*" behind it when it is stale; empty for an error.
  [[nodiscard]] QByteArray resolve(const QByteArray& bytes) {
    const auto resolved = access_.resolveGrant(bytes);
    if (!resolved) {
      EXPECT_FALSE(resolved.error().isEmpty());
      return {};
    }
    return filePath(resolved->url) + (resolved->stale ? "*" : "");
  }
  // On a file system that keeps no time of birth a renamed folder is not looked for.
  [[nodiscard]] bool birthIsKept() const { return FolderIdentity::of(at(""))->birth != 0; }

  const QTemporaryDir folder_;
  const std::unique_ptr<Platform> platform_ = makePlatform();
  FolderAccess& access_ = platform_->folderAccess();
};

TEST_F(FolderGrants, LeadBackToTheFolderInALaterProcess) {
  for (const char* name :
       {"plain", "with space %41#?&é", "Türkçe ı İ", "raw \xff\xfe", "new\nline"}) {
    make(name);
    const QByteArray bytes = grant(name);
    EXPECT_EQ(resolve(bytes).toStdString(), at(name).toStdString());
    EXPECT_EQ(makePlatform()->folderAccess().resolveGrant(bytes)->url, fileUrl(at(name)));
    // Not left to the folder's own cleaning up, which knows no names that are no text.
    if (!QByteArrayView(name).contains('\xff')) continue;
    ASSERT_EQ(::rmdir(at(name).constData()), 0);
  }
  EXPECT_EQ(resolve(*access_.makeGrant(QUrl(QStringLiteral("file:///")))), "/");
  EXPECT_EQ(resolve(*access_.makeGrant(
                QUrl(QString::fromUtf8("file://localhost" + at("plain") + "/../plain/")))),
            at("plain"));
}

TEST_F(FolderGrants, WhatIsNoFolderOfThisMachineIsNotGranted) {
  makeFile("file");
  ASSERT_EQ(::mkfifo(at("fifo").constData(), 0600), 0);
  ASSERT_EQ(::symlink("loop", at("loop").constData()), 0);
  QList<QUrl> refused{fileUrl("/" + QByteArray(5000, 'x'))};
  for (const char* name : {"file", "fifo", "loop", "missing"}) refused.append(fileUrl(at(name)));
  for (const char* url :
       {"", "https://example.com/tmp", "file://elsewhere/tmp", "file:///tmp%00/x", "tmp"})
    refused.append(QUrl(QString::fromUtf8(url)));
  for (const QUrl& url : refused) {
    const auto bytes = access_.makeGrant(url);
    ASSERT_FALSE(bytes) << qPrintable(url.toString());
    EXPECT_FALSE(bytes.error().isEmpty());
  }
}

TEST_F(FolderGrants, FollowTheFolderThroughWhatHappensToIt) {
  make("folder");
  make("other");
  ASSERT_EQ(::symlink("folder", at("link").constData()), 0);
  const QByteArray bytes = grant("link");
  EXPECT_EQ(resolve(bytes), at("folder")) << "a chosen link is the folder that it led to";

  rename("folder", "renamed");
  EXPECT_EQ(resolve(bytes), birthIsKept() ? at("renamed") + "*" : QByteArray());

  make("folder");
  EXPECT_EQ(resolve(bytes), at("folder") + "*") << "another folder has its place";

  ASSERT_EQ(::rmdir(at("folder").constData()), 0);
  ASSERT_EQ(::symlink("renamed", at("folder").constData()), 0);
  EXPECT_EQ(resolve(bytes), at("folder")) << "a link to where it went";
  ASSERT_EQ(::unlink(at("folder").constData()), 0);
  ASSERT_EQ(::symlink("other", at("folder").constData()), 0);
  EXPECT_EQ(resolve(bytes), at("folder") + "*");
  ASSERT_EQ(::unlink(at("folder").constData()), 0);

  rename("renamed", "other/folder");
  EXPECT_EQ(resolve(bytes), "") << "moved out of sight";
  rename("other/folder", "folder");
  EXPECT_EQ(resolve(bytes), at("folder")) << "and back";

  ASSERT_EQ(::rmdir(at("folder").constData()), 0);
  EXPECT_EQ(resolve(bytes), "");
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

QByteArray sealed(const QByteArray& body) {
  return QCryptographicHash::hash(body, QCryptographicHash::Sha256) + body;
}

TEST_F(FolderGrants, BytesThatAreDamagedOrNotOursResolveToNothing) {
  make("folder");
  const QByteArray bytes = grant("folder");
  for (qsizetype size = 0; size < bytes.size(); ++size)
    ASSERT_EQ(resolve(bytes.first(size)), "") << size;
  for (qsizetype i = 0; i < bytes.size() * 8; ++i) {
    QByteArray flipped = bytes;
    flipped[i / 8] = static_cast<char>(flipped[i / 8] ^ (1 << (i % 8)));
    ASSERT_EQ(resolve(flipped), "") << i;
  }
  EXPECT_EQ(resolve(sealed(bytes.sliced(32) + '\0')), "");

  // Whole, and right in everything but the one fault.
  constexpr quint32 kOurs = 0x4f52'5647;
  const struct {
    quint32 magic;
    quint8 version;
    QByteArray path;
    bool resolves;
  } cases[] = {{kOurs, 1, "/tmp", true},
               {kOurs, 1, "/", true},
               {kOurs + 1, 1, "/tmp", false},
               {kOurs, 2, "/tmp", false},
               {kOurs, 1, "", false},
               {kOurs, 1, "tmp", false},
               {kOurs, 1, "/tmp/", false},
               {kOurs, 1, "//tmp", false},
               {kOurs, 1, "/tmp/../etc", false},
               {kOurs, 1, QByteArray("/tmp\0x", 6), false},
               {kOurs, 1, "/" + QByteArray(5000, 'x'), false},
               {kOurs, 1, "/dev/null", false}};
  for (const auto& [magic, version, path, resolves] : cases) {
    QByteArray body;
    QDataStream stream(&body, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    stream << magic << version << quint64{1} << quint64{1} << qint64{1} << path;
    EXPECT_EQ(resolve(sealed(body)), resolves ? path + '*' : QByteArray()) << path.left(20).data();
  }
  // A length far beyond the bytes that are there.
  QByteArray body;
  QDataStream stream(&body, QIODevice::WriteOnly);
  stream << kOurs << quint8{1} << quint64{1} << quint64{1} << qint64{1} << quint32{0x7fff'fff0};
  EXPECT_EQ(resolve(sealed(body)), "");
}

}  // namespace
