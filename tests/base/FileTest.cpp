#include "base/FileUrl.h"
#include "base/SmallFile.h"
#include "base/WriteFile.h"
#include "support/TemporaryTree.h"

#include <QDir>

using namespace orvex;

namespace {

TEST(FileUrl, KeepsEveryByte) {
  const QByteArray paths[]{"/",           "/a b/ş.cube", "/100%/a%20b", "/q?x#y;z",  "/back\\slash",
                           "/\xff\xfe/x", "/new\nline",  "//double",    "/a:b@c[1]", "/e\u0301"};
  for (const QByteArray& path : paths) {
    const QUrl url = fileUrl(path);
    EXPECT_TRUE(url.isLocalFile()) << path.constData();
    EXPECT_EQ(filePath(url), path);
    EXPECT_EQ(filePath(QUrl(url.toString(QUrl::FullyEncoded), QUrl::StrictMode)), path);
    EXPECT_EQ(fileText(url), QString::fromUtf8(path));
  }
}

TEST(SmallFile, ReadsRegularFilesUpToTheLimitOnly) {
  const TemporaryTree tree;
  tree.file("x", "12345");
  tree.fifo("fifo");
  tree.folder("folder");
  tree.link("link", "x");
  EXPECT_EQ(readSmallFile(AT_FDCWD, tree.path("x"), 5), QByteArray("12345"));
  EXPECT_EQ(readSmallFile(AT_FDCWD, tree.path("link"), 5), QByteArray("12345"));
  EXPECT_EQ(readSmallFile(AT_FDCWD, tree.path("x"), 4), std::nullopt);
  for (const char* name : {"fifo", "folder", "missing"})
    EXPECT_EQ(readSmallFile(AT_FDCWD, tree.path(name), 5), std::nullopt) << name;
  EXPECT_EQ(readSmallFile(AT_FDCWD, "/dev/zero", 5), std::nullopt);
}

TEST(WriteFile, ReplacesTheFileAndNotWhatALinkLeadsTo) {
  const TemporaryTree tree;
  tree.file("target", "kept");
  tree.link("cache/file", "../target");
  EXPECT_TRUE(replaceFile(tree.text("cache/file"), "new"));
  EXPECT_EQ(readSmallFile(AT_FDCWD, tree.path("target"), 10), QByteArray("kept"));
  EXPECT_EQ(readSmallFile(AT_FDCWD, tree.path("cache/file"), 10), QByteArray("new"));
  EXPECT_TRUE(replaceFile(tree.text("new/folders/file"), "x"));
  // Nothing is left behind where it cannot be written.
  tree.folder("taken/x");
  EXPECT_FALSE(replaceFile(tree.text("taken"), "x"));
  EXPECT_FALSE(replaceFile(tree.text("target/below"), "x"));
  EXPECT_EQ(QDir(tree.text(".")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
            (QStringList{QStringLiteral("cache"), QStringLiteral("new"), QStringLiteral("taken"),
                         QStringLiteral("target")}));
}

}  // namespace
