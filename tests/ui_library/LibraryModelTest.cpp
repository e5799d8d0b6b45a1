#include "engines/FolderBookmarkStore.h"
#include "engines/ScriptedAccess.h"
#include "support/TemporaryTree.h"
#include "support/Wait.h"
#include "ui/library/AudioUnitModel.h"
#include "ui/library/MotionTemplateModel.h"

#include <QAbstractItemModelTester>
#include <QSettings>
#include <QSignalSpy>

using namespace orvex;
using namespace Qt::StringLiterals;

namespace {

class LibraryModelTest : public testing::Test {
 protected:
  [[nodiscard]] QString names() const {
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
      names.append(model.data(model.index(row), MotionTemplateModel::Name).toString());
    return names.join(u' ');
  }
  void scan(MotionTemplateRegistry& registry) {
    registry.scan();
    ASSERT_TRUE(waitUntil([&] { return !registry.isScanning(); }));
  }

  TemporaryTree tree;
  QSettings settings{tree.text("settings"), QSettings::IniFormat};
  ScriptedAccess access;
  RecordedLog log;
  FolderBookmarkStore store{access, settings, log};
  MotionTemplateModel model;
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(LibraryModelTest, RowsStayAndGetOtherItems) {
  for (const char* file : {"A/One/a.moti", "A/One/b.moti", "B/Two/c.moti", "B/Two/ab.motr"})
    tree.file(file);
  auto registry = std::make_unique<MotionTemplateRegistry>(store);
  ASSERT_EQ(registry->useFolder(QUrl::fromLocalFile(QString::fromUtf8(tree.root()))), QString());
  ASSERT_TRUE(waitUntil([&] { return !registry->isScanning(); }));
  model.setRegistry(registry.get());
  EXPECT_EQ(names(), u"a b c ab"_s);

  const QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
  const QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
  const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  const QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
  struct Step {
    const char16_t* search;
    int kind;
    const char16_t* names;
    // The first row given another item; -1 for none.
    int firstChanged;
  };
  using namespace MotionTemplateKindNames;
  for (const Step& step : {Step{u"b", Any, u"b c ab", 0},
                           {u" B ", Any, u"b c ab", -1},
                           {u"ab", Any, u"ab", 0},
                           {u"", Any, u"a b c ab", 0},
                           {u"", Title, u"a b c", -1},
                           {u"a", Title, u"a b", -1},
                           {u"b", Transition, u"ab", 0},
                           {u"x", Transition, u"", -1},
                           {u"", Any, u"a b c ab", -1}}) {
    const qsizetype before = changed.size();
    const int rows = model.rowCount();
    const qsizetype shrunk = removed.size();
    const qsizetype grown = inserted.size();
    model.setKind(step.kind);
    model.setSearch(QString::fromUtf16(step.search));
    EXPECT_EQ(names(), QString::fromUtf16(step.names));
    EXPECT_LE(removed.size() - shrunk + inserted.size() - grown, 2);
    if (step.firstChanged >= 0) {
      ASSERT_GT(changed.size(), before) << qPrintable(names());
      EXPECT_EQ(changed.last()[0].toModelIndex().row(), step.firstChanged);
    }
    EXPECT_EQ(model.count() < rows, removed.size() > shrunk) << qPrintable(names());
  }
  EXPECT_TRUE(reset.isEmpty());

  // Fewer and other items, with and without a search; then none at all.
  const int generation = model.generation();
  model.setSearch(u"a"_s);
  std::filesystem::remove_all(tree.path("A").toStdString());
  scan(*registry);
  EXPECT_EQ(names(), u"ab"_s);
  EXPECT_GT(model.generation(), generation);
  model.setSearch({});
  EXPECT_EQ(names(), u"c ab"_s);
  std::filesystem::remove_all(tree.root().toStdString());
  scan(*registry);
  EXPECT_EQ(names(), QString());
  registry.reset();
  model.setSearch(u"b"_s);
  EXPECT_EQ(model.count(), 0);
}

TEST(AudioUnitModelTest, CodesReadAsFourCharactersWhereTheyAre) {
  EXPECT_EQ(AudioUnitModel::codeTexts(u"1635083896-4294901760"_s),
            (QStringList{u"1635083896 · aufx"_s, u"4294901760 · 0xffff0000"_s}));
}

}  // namespace
