#include "engines/MotionTemplateScan.h"
#include "support/TemporaryTree.h"

#include <gmock/gmock.h>

using namespace orvex;

namespace {

Inventory<MotionTemplateItem> scan(const QByteArray& root) {
  return scanMotionTemplates(root, {}, {QLocale(QLocale::English), {}});
}

TEST(MotionTemplateScan, TellsKindCategoryAndPreview) {
  const struct {
    const char* path;
    const char* beside;
    const char16_t* kind;
    const char16_t* category;
    bool preview;
  } rows[]{
      // Two levels above a file in the root lies what the root lies in.
      {"X.MOTR", "Small.png", u"transition", u"above", false},
      {"A/X.moef", "A/small.png", u"effect", u"root", true},
      {"A/B/X.motn", "small.png", u"generator", u"A", false},
      {"A/B/C/X.Moti", "A/B/C/large.png", u"title", u"B", false},
      {"P.bundle/B/C/X.motr", "P.bundle/B/C/small.png", u"transition", u"B", true},
  };
  for (const auto& row : rows) {
    const TemporaryTree tree;
    tree.file("above/root/" + QByteArray(row.path));
    tree.file("above/root/" + QByteArray(row.beside));
    const auto items = scan(tree.path("above/root")).items;
    ASSERT_EQ(items.size(), 1) << row.path;
    EXPECT_EQ(rawValue(items[0].kind), row.kind) << row.path;
    EXPECT_EQ(items[0].category, row.category) << row.path;
    EXPECT_EQ(items[0].previewURL.has_value(), row.preview) << row.path;
  }
}

}  // namespace
