#include "base/FileTree.h"

namespace {

struct Walked {
  // With the kind behind each.
  std::vector<QByteArray> paths;
  qint64 skippedFolders = 0;
};

Walked walk(const QByteArray& root) {
  Walked walked;
  walked.skippedFolders = FileTree::walk(
      root,
      [&](const FileTreeEntry& entry) {
        using Kind = FileTreeEntry::Kind;
        const char* kind = entry.kind == Kind::File    ? " file"
                           : entry.kind == Kind::Link  ? " link"
                           : entry.kind == Kind::Other ? " other"
                           : entry.folder == -1        ? " closed"
                                                       : " open";
        walked.paths.push_back(entry.path + kind);
        EXPECT_EQ(::faccessat(entry.parent, entry.name().constData(), F_OK, AT_SYMLINK_NOFOLLOW),
                  0);
        return entry.path == "skipped" ? FileTree::Next::Skip : FileTree::Next::Descend;
      },
      {});
  return walked;
}

TEST(FileTree, MeetsWhatIsThereAndFollowsNoLink) {
  const TemporaryTree tree;
  for (const char* path :
       {"a/b/file", "a/\xff\xfe", ".hidden/x", "a/.hidden", "skipped/x", "locked/x"})
    tree.file(path);
  tree.fifo("fifo");
  tree.link("a/loop", "..");
  tree.link("outside", "/");
  tree.link("dangling", "nowhere");
  ::chmod(tree.path("locked").constData(), 0111);
  const OrdinaryUser user(tree);
  const Walked walked = walk(tree.root());
  EXPECT_THAT(walked.paths,
              testing::UnorderedElementsAre("a open", "a/b open", "a/b/file file", "a/loop link",
                                            "a/\xff\xfe file", "dangling link", "fifo other",
                                            "outside link", "skipped open", "locked closed"));
  EXPECT_EQ(walked.skippedFolders, 1);
}

TEST(FileTree, StopsWhereTheTreeIsTooDeep) {
  const TemporaryTree tree;
  tree.folder(QByteArray("dd/").repeated(600));
  const Walked walked = walk(tree.root());
  EXPECT_EQ(walked.skippedFolders, 1);
  EXPECT_EQ(walked.paths.size(), FileTree::kMaximumDepth + 1);
}

TEST(FileTree, StopsWhenAskedAndSurvivesATreeThatVanishes) {
  const TemporaryTree tree;
  for (int i = 0; i < 50; ++i) tree.file("f" + QByteArray::number(i) + "/x/y");
  std::stop_source stop;
  int met = 0;
  const auto stopAtTheTenth = [&](const FileTreeEntry&) {
    if (++met == 10) stop.request_stop();
    return FileTree::Next::Descend;
  };
  std::ignore = FileTree::walk(tree.root(), stopAtTheTenth, stop.get_token());
  EXPECT_EQ(met, 10);
  met = 0;
  const auto remove = [&](const FileTreeEntry&) {
    ++met;
    std::filesystem::remove_all(tree.root().toStdString());
    return FileTree::Next::Descend;
  };
  std::ignore = FileTree::walk(tree.root(), remove, {});
  EXPECT_GE(met, 1);
}

}  // namespace
