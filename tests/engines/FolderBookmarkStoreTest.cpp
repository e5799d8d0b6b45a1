#include "engines/FolderBookmarkStore.h"
#include "engines/ScriptedAccess.h"

#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace orvex;

namespace {

const QString kKey = u"vantrelo.orvex.finalcut.lutFolderBookmark"_qs;
const QUrl kFolder = QUrl::fromLocalFile(u"/a/b"_qs);
const QByteArray kGood = "grant:file:///a/b";
const QByteArray kStale = "stale:file:///a/b";
const QString kNoGrant = u"[Vantrelo Orvex] bookmark resolve error no grant"_qs;

class BookmarkStore : public testing::Test {
 protected:
  // What a later process would find.
  [[nodiscard]] QVariant stored() {
    settings.sync();
    return QSettings(settings.fileName(), QSettings::IniFormat).value(kKey);
  }

  QTemporaryDir folder;
  QSettings settings{folder.filePath(u"settings"_qs), QSettings::IniFormat};
  ScriptedAccess access;
  RecordedLog log;
  FolderBookmarkStore store{access, settings, log};
};

TEST_F(BookmarkStore, StoresTheGrantOfWhatIsChosen) {
  const struct {
    std::optional<QUrl> answer;
    bool canGrant;
    QByteArray after;
    QStringList lines;
  } rows[]{
      {kFolder, true, kGood, {}},
      {{}, true, "old", {}},
      {kFolder, false, "old", {u"[Vantrelo Orvex] bookmark write error no grant"_qs}},
  };
  for (const auto& row : rows) {
    settings.setValue(kKey, QByteArray("old"));
    access.canGrant = row.canGrant;
    std::optional<std::optional<QUrl>> chosen;
    store.chooseDirectory(u"Title"_qs, kKey, [&](const auto& result) { chosen = result; });
    EXPECT_FALSE(chosen);
    access.answer(row.answer);
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(*chosen, row.answer);
    EXPECT_EQ(stored(), QVariant(row.after));
    EXPECT_EQ(log.lines, row.lines);
  }
  EXPECT_EQ(access.asked, QStringList(3, u"Title|Seç"_qs));
}

TEST_F(BookmarkStore, RestoresByTheStateOfTheGrant) {
  const struct {
    QVariant entry;
    bool stale;
    bool canGrant;
    std::optional<QUrl> restored;
    QVariant after;
    QStringList lines;
  } rows[]{
      {{}, false, true, {}, {}, {}},
      {u"text"_qs, false, true, {}, u"text"_qs, {}},
      {QByteArray("x"), false, true, {}, QByteArray("x"), {kNoGrant.chopped(5) + u"such grant"_qs}},
      {kGood, false, false, kFolder, kGood, {}},
      {kStale, true, true, kFolder, kGood, {}},
      {kStale, true, false, {}, kStale, {kNoGrant}},
  };
  for (const auto& row : rows) {
    settings.setValue(kKey, row.entry);
    if (!row.entry.isValid()) settings.remove(kKey);
    access.stale = row.stale;
    access.canGrant = row.canGrant;
    log.lines.clear();
    EXPECT_EQ(store.restoreDirectory(kKey), row.restored) << qPrintable(row.entry.toString());
    EXPECT_EQ(stored(), row.after);
    EXPECT_EQ(log.lines, row.lines);
  }
}

TEST_F(BookmarkStore, AnAnswerAfterItsEndReachesNobody) {
  auto other = std::make_unique<FolderBookmarkStore>(access, settings, log);
  other->chooseDirectory(u"Title"_qs, kKey, [](const auto&) { FAIL() << "called"; });
  other.reset();
  access.answer(kFolder);
  EXPECT_FALSE(stored().isValid());
}

}  // namespace
