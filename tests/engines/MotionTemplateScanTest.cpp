#include "engines/MotionTemplateScan.h"
#include "support/TemporaryTree.h"

#include <gmock/gmock.h>

using namespace orvex;

namespace {

QList<MotionTemplateItem> scan(const QByteArray& root) {
  return scanMotionTemplates(root, {}, {QLocale(QLocale::English), {}}).items;
}

TEST(MotionTemplateScan, DescribesATemplateInItsFolder) {
  const TemporaryTree tree;
  tree.file("Titles/Lower Thirds/Name Key/Name Key.moti");
  tree.file("Titles/Lower Thirds/Name Key/small.png");
  const QByteArray folder = "Titles/Lower Thirds/Name Key/";
  EXPECT_THAT(scan(tree.root()),
              testing::ElementsAre(MotionTemplateItem{
                  QString::fromUtf8(folder + "Name Key.moti"), QStringLiteral("Name Key"),
                  MotionTemplateKind::Title, QStringLiteral("Lower Thirds"),
                  QUrl::fromLocalFile(tree.text(folder + "Name Key.moti")),
                  QUrl::fromLocalFile(tree.text(folder + "small.png"))}));
  const auto found = scanMotionTemplates(tree.root(), {}, {QLocale(QLocale::English), {}});
  EXPECT_EQ(found.search.find(u"lower").size(), 1);
  EXPECT_EQ(found.search.find(u"titles").size(), 0);
}

TEST(MotionTemplateScan, TellsKindCategoryAndPreview) {
  const struct {
    const char* path;
    const char* beside;
    MotionTemplateKind kind;
    const char* category;
    bool preview;
  } rows[]{
      // Two levels above a file in the root lies what the root lies in.
      {"X.MOTR", "Small.png", MotionTemplateKind::Transition, "above", false},
      {"A/X.moef", "A/small.png", MotionTemplateKind::Effect, "root", true},
      {"A/B/X.motn", "small.png", MotionTemplateKind::Generator, "A", false},
      {"A/B/C/X.Moti", "A/B/C/large.png", MotionTemplateKind::Title, "B", false},
      {"P.bundle/B/C/X.motr", "P.bundle/B/C/small.png", MotionTemplateKind::Transition, "B", true},
  };
  for (const auto& row : rows) {
    const TemporaryTree tree;
    tree.file("above/root/" + QByteArray(row.path));
    tree.file("above/root/" + QByteArray(row.beside));
    const auto items = scan(tree.path("above/root"));
    ASSERT_EQ(items.size(), 1) << row.path;
    EXPECT_EQ(items[0].kind, row.kind) << row.path;
    EXPECT_EQ(items[0].category, QString::fromUtf8(row.category)) << row.path;
    EXPECT_EQ(items[0].previewURL.has_value(), row.preview) << row.path;
  }
}

TEST(MotionTemplateScan, OrdersByKindThenByName) {
  const TemporaryTree tree;
  for (const char* name : {"b.motr", "a.moti", "z.moef", "C.motn", "B.motn", "a.motn", "Y.moef",
                           "x.mot", ".x.moef", "moef", "x.moefx"})
    tree.file(name);
  QStringList ids;
  for (const auto& item : scan(tree.root())) ids.append(item.id);
  EXPECT_EQ(ids.join(u' '), u"Y.moef z.moef a.motn B.motn C.motn a.moti b.motr");
}

TEST(MotionTemplateScan, NamesItsKinds) {
  EXPECT_EQ(rawValue(MotionTemplateKind::Effect), u"effect");
  EXPECT_EQ(rawValue(MotionTemplateKind::Generator), u"generator");
  EXPECT_EQ(rawValue(MotionTemplateKind::Title), u"title");
  EXPECT_EQ(rawValue(MotionTemplateKind::Transition), u"transition");
}

}  // namespace
