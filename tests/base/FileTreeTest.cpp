#include "base/FileTree.h"
#include "support/TemporaryTree.h"

#include <QDir>

#include <algorithm>
#include <gmock/gmock.h>
#include <vector>

using namespace orvex;

namespace {

struct Walked {
  std::vector<QByteArray> paths;
  FileTree::Result result;
};

Walked walk(const QByteArray& root) {
  Walked walked;
  walked.result = FileTree::walk(root,
                                 [&](const FileTreeEntry& entry) {
                                   walked.paths.push_back(entry.path);
                                   return FileTree::Next::Descend;
                                 },
                                 {});
  std::ranges::sort(walked.paths);
  return walked;
}

TEST(FileTree, MeetsWhatIsThereAndFollowsNoLink) {
  const TemporaryTree tree;
  tree.file("a/b/file");
  tree.file("a/\xff\xfe");
  tree.file(".hidden/x");
  tree.file("a/.hidden");
  tree.fifo("fifo");
  tree.link("a/loop", "..");
  tree.link("outside", "/");
  tree.link("dangling", "nowhere");
  tree.folder("empty");
  const Walked walked = walk(tree.root());
  EXPECT_THAT(walked.paths, testing::ElementsAre("a", "a/b", "a/b/file", "a/loop", "a/\xff\xfe",
                                                 "dangling", "empty", "fifo", "outside"));
  EXPECT_TRUE(walked.result.complete);
  EXPECT_EQ(walked.result.skippedFolders, 0);
}

TEST(FileTree, TellsKindsAndGivesTheFoldersAround) {
  const TemporaryTree tree;
  tree.file("folder/file");
  tree.link("folder/link", "file");
  tree.fifo("folder/fifo");
  std::vector<std::pair<QByteArray, FileTreeEntry::Kind>> met;
  std::ignore = FileTree::walk(
      tree.root(),
      [&](const FileTreeEntry& entry) {
        met.emplace_back(entry.name().toByteArray(), entry.kind);
        EXPECT_EQ(::faccessat(entry.parent, entry.name().constData(), F_OK, AT_SYMLINK_NOFOLLOW),
                  0);
        if (entry.kind == FileTreeEntry::Kind::Folder)
          EXPECT_EQ(::faccessat(entry.folder, "file", F_OK, 0), 0);
        else
          EXPECT_EQ(entry.folder, -1);
        return FileTree::Next::Descend;
      },
      {});
  using Kind = FileTreeEntry::Kind;
  EXPECT_THAT(met, testing::UnorderedElementsAre(std::pair{QByteArray("folder"), Kind::Folder},
                                                 std::pair{QByteArray("file"), Kind::File},
                                                 std::pair{QByteArray("link"), Kind::Link},
                                                 std::pair{QByteArray("fifo"), Kind::Other}));
}

TEST(FileTree, SkipsWhatTheVisitorSkips) {
  const TemporaryTree tree;
  tree.file("skipped/x");
  tree.file("entered/y");
  std::vector<QByteArray> paths;
  std::ignore = FileTree::walk(tree.root(),
                               [&](const FileTreeEntry& entry) {
                                 paths.push_back(entry.path);
                                 return entry.path == "skipped" ? FileTree::Next::Skip
                                                                : FileTree::Next::Descend;
                               },
                               {});
  EXPECT_THAT(paths, testing::UnorderedElementsAre("skipped", "entered", "entered/y"));
}

TEST(FileTree, PassesOverFoldersThatCannotBeRead) {
  const TemporaryTree tree;
  tree.file("locked/x");
  tree.file("open/y");
  ::chmod(tree.path("locked").constData(), 0);
  {
    const OrdinaryUser user(tree);
    const Walked walked = walk(tree.root());
    EXPECT_THAT(walked.paths, testing::ElementsAre("locked", "open", "open/y"));
    EXPECT_TRUE(walked.result.complete);
    EXPECT_EQ(walked.result.skippedFolders, 1);
  }
  ::chmod(tree.path("locked").constData(), 0755);
}

TEST(FileTree, ARootThatIsNoFolderHasNoEntries) {
  const TemporaryTree tree;
  tree.file("file");
  tree.file("real/x");
  tree.link("link", "real");
  EXPECT_EQ(walk(tree.path("file")).result.skippedFolders, 1);
  EXPECT_EQ(walk(tree.path("missing")).result.skippedFolders, 1);
  EXPECT_THAT(walk(tree.path("link")).paths, testing::ElementsAre("x"));
}

TEST(FileTree, StopsWhereTheTreeIsTooDeep) {
  const TemporaryTree tree;
  int folder = ::open(tree.root().constData(), O_RDONLY | O_DIRECTORY);
  for (int i = 0; i < 600; ++i) {
    ASSERT_EQ(::mkdirat(folder, "dd", 0755), 0);
    const int below = ::openat(folder, "dd", O_RDONLY | O_DIRECTORY);
    ::close(folder);
    folder = below;
  }
  ::close(folder);
  const Walked walked = walk(tree.root());
  EXPECT_TRUE(walked.result.complete);
  EXPECT_EQ(walked.result.skippedFolders, 1);
  EXPECT_EQ(walked.paths.size(), FileTree::kMaximumDepth + 1);
}

TEST(FileTree, StopsWhenAskedAndSurvivesATreeThatVanishes) {
  const TemporaryTree tree;
  for (int i = 0; i < 50; ++i) tree.file("f" + QByteArray::number(i) + "/x/y");
  std::stop_source stop;
  int met = 0;
  const FileTree::Result stopped = FileTree::walk(
      tree.root(),
      [&](const FileTreeEntry&) {
        if (++met == 10) stop.request_stop();
        return FileTree::Next::Descend;
      },
      stop.get_token());
  EXPECT_FALSE(stopped.complete);
  EXPECT_EQ(met, 10);

  met = 0;
  const FileTree::Result vanished =
      FileTree::walk(tree.root(),
                     [&](const FileTreeEntry&) {
                       if (++met == 10) QDir(QFile::decodeName(tree.root())).removeRecursively();
                       return FileTree::Next::Descend;
                     },
                     {});
  EXPECT_TRUE(vanished.complete);
  EXPECT_LE(met, 60);
}

}  // namespace
