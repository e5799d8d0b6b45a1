#include "engines/EngineHealth.h"
#include "engines/FolderBookmarkStore.h"
#include "engines/ScriptedAccess.h"

#include <QSettings>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace orvex;

namespace {

const QString kKey = QStringLiteral("vantrelo.orvex.finalcut.lutFolderBookmark");
const QUrl kFolder = QUrl::fromLocalFile(QStringLiteral("/a/b"));

class BookmarkStore : public testing::Test {
 protected:
  // What a later process would find.
  [[nodiscard]] QVariant stored() {
    settings.sync();
    return QSettings(settings.fileName(), QSettings::IniFormat).value(kKey);
  }

  void choose(const std::optional<QUrl>& answer) {
    chosen.reset();
    store.chooseDirectory(QStringLiteral("Title"), kKey,
                          [this](const std::optional<QUrl>& result) { chosen = result; });
    EXPECT_FALSE(chosen);
    access.answer(answer);
  }

  QTemporaryDir folder;
  QSettings settings{folder.filePath(QStringLiteral("settings")), QSettings::IniFormat};
  ScriptedAccess access;
  RecordedLog log;
  FolderBookmarkStore store{access, settings, log};
  // What the caller was told, once it was.
  std::optional<std::optional<QUrl>> chosen;
};

TEST_F(BookmarkStore, KeepsWhatWasChosenAndFindsItAgain) {
  choose(kFolder);
  EXPECT_THAT(access.asked, testing::ElementsAre(QStringLiteral("Title|Seç")));
  EXPECT_EQ(chosen, std::optional(kFolder));
  EXPECT_EQ(stored(), QVariant(QByteArray("grant:file:///a/b")));
  EXPECT_EQ(store.restoreDirectory(kKey), kFolder);
  EXPECT_THAT(access.used, testing::IsEmpty());
  EXPECT_THAT(log.lines, testing::IsEmpty());
}

TEST_F(BookmarkStore, ACancelledChoiceChangesNothing) {
  settings.setValue(kKey, QByteArray("old"));
  choose(std::nullopt);
  ASSERT_TRUE(chosen.has_value());
  EXPECT_EQ(*chosen, std::nullopt);
  EXPECT_EQ(stored(), QVariant(QByteArray("old")));
  EXPECT_THAT(log.lines, testing::IsEmpty());
}

TEST_F(BookmarkStore, AFolderWithoutAGrantIsHandedOnAllTheSame) {
  settings.setValue(kKey, QByteArray("old"));
  access.canGrant = false;
  choose(kFolder);
  EXPECT_EQ(chosen, std::optional(kFolder));
  EXPECT_EQ(stored(), QVariant(QByteArray("old")));
  EXPECT_THAT(log.lines, testing::ElementsAre(
                             QStringLiteral("[Vantrelo Orvex] bookmark write error no grant")));
}

TEST_F(BookmarkStore, RestoresByTheStateOfTheGrant) {
  const QString resolveError = QStringLiteral("[Vantrelo Orvex] bookmark resolve error ");
  const struct {
    const char* name;
    QVariant entry;
    bool stale;
    bool canGrant;
    std::optional<QUrl> restored;
    QVariant after;
    QStringList lines;
  } rows[]{
      {"none", {}, false, true, {}, {}, {}},
      {"of another type", QStringLiteral("text"), false, true, {}, QStringLiteral("text"), {}},
      {"corrupt",
       QByteArray("junk"),
       false,
       true,
       {},
       QByteArray("junk"),
       {resolveError + QStringLiteral("no such grant")}},
      {"good",
       QByteArray("grant:file:///a/b"),
       false,
       false,
       kFolder,
       QByteArray("grant:file:///a/b"),
       {}},
      {"stale",
       QByteArray("stale:file:///a/b"),
       true,
       true,
       kFolder,
       QByteArray("grant:file:///a/b"),
       {}},
      {"stale for good",
       QByteArray("stale:file:///a/b"),
       true,
       false,
       {},
       QByteArray("stale:file:///a/b"),
       {resolveError + QStringLiteral("no grant")}},
  };
  for (const auto& row : rows) {
    settings.setValue(kKey, row.entry);
    if (!row.entry.isValid()) settings.remove(kKey);
    access.stale = row.stale;
    access.canGrant = row.canGrant;
    log.lines.clear();
    EXPECT_EQ(store.restoreDirectory(kKey), row.restored) << row.name;
    EXPECT_EQ(stored(), row.after) << row.name;
    EXPECT_EQ(log.lines, row.lines) << row.name;
  }
}

TEST_F(BookmarkStore, AnAnswerAfterItsEndReachesNobody) {
  auto other = std::make_unique<FolderBookmarkStore>(access, settings, log);
  other->chooseDirectory(QStringLiteral("Title"), kKey,
                         [](const std::optional<QUrl>&) { FAIL() << "called"; });
  other.reset();
  access.answer(kFolder);
  EXPECT_FALSE(stored().isValid());
}

TEST(EngineHealth, ConvertsToItsRawValueAndBack) {
  for (const auto health : {EngineHealth::Ready, EngineHealth::NeedsAccess, EngineHealth::Empty,
                            EngineHealth::Unavailable, EngineHealth::Error})
    EXPECT_EQ(engineHealthFromRawValue(rawValue(health)), health);
  EXPECT_EQ(rawValue(EngineHealth::NeedsAccess), u"needsAccess");
  for (const char16_t* unknown : {u"", u"Ready", u"needs access"})
    EXPECT_EQ(engineHealthFromRawValue(unknown), std::nullopt);
}

}  // namespace
