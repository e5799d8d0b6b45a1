#include "base/FileError.h"
#include "base/NewFile.h"
#include "base/SmallFile.h"

TEST(SmallFile, ReadsRegularFilesUpToTheLimitOnly) {
  const TemporaryTree tree;
  tree.file("x", "12345");
  tree.fifo("fifo");
  tree.folder("folder");
  tree.link("link", "x");
  EXPECT_EQ(readSmallFile(AT_FDCWD, tree.path("x"), 5), QByteArray("12345"));
  EXPECT_EQ(readSmallFile(AT_FDCWD, tree.path("link"), 5), QByteArray("12345"));
  EXPECT_EQ(readSmallFile(AT_FDCWD, tree.path("x"), 4), std::nullopt);
  for (const QByteArray& path : {tree.path("fifo"), tree.path("folder"), QByteArray("/dev/zero")})
    EXPECT_EQ(readSmallFile(AT_FDCWD, path, 5), std::nullopt) << path.data();
}

TEST(NewFile, ReplacesTheFileAndNotWhatALinkLeadsTo) {
  const TemporaryTree tree;
  tree.file("target", "kept");
  tree.link("cache/file", "../target");
  EXPECT_TRUE(replaceFile(tree.path("cache/file"), "new"));
  EXPECT_EQ(readSmallFile(AT_FDCWD, tree.path("target"), 10), QByteArray("kept"));
  EXPECT_EQ(readSmallFile(AT_FDCWD, tree.path("cache/file"), 10), QByteArray("new"));
  EXPECT_TRUE(replaceFile(tree.path("new//folders//file"), "x"));
  // Nothing is left behind where it cannot be written.
  tree.folder("taken/x");
  EXPECT_FALSE(replaceFile(tree.path("taken"), "x"));
  EXPECT_THAT(Directory::open(tree.root()).names(),
              testing::UnorderedElementsAre("cache", "new", "taken", "target"));
}

TEST(Directory, RemovesAllBelowAndNothingBehindLinks) {
  const TemporaryTree tree;
  tree.file("outside/kept");
  tree.file("root/pack/a/b/\xff\xfe");
  tree.folder("root/pack/empty");
  tree.fifo("root/pack/fifo");
  tree.link("root/pack/a/link", tree.path("outside"));
  tree.link("root/link", "../outside");
  const auto root = Directory::open(tree.path("root"));
  EXPECT_THROW(std::ignore = root.folder("link"), FileError);
  tree.file("root/deep/" + QByteArray("d/").repeated(1500) + "x");
  for (const char* name : {"pack", "link", "deep", "missing"}) root.remove(name);
  EXPECT_TRUE(root.names().isEmpty());
  EXPECT_TRUE(QFile::exists(tree.text("outside/kept")));
}
