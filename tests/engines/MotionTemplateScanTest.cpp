#include "engines/MotionTemplateScan.h"

namespace {

Inventory<MotionTemplateItem> scan(const QByteArray& root) {
  return scanMotionTemplates(root, {}, {QLocale(QLocale::English), {}});
}

TEST(MotionTemplateScan, TellsKindCategoryAndPreview) {
  // A template, what lies beside it, its kind, its category, and whether that is its preview.
  const std::tuple<QByteArray, QByteArray, QString, QString, bool> rows[]{
      // Two levels above a file in the root lies what the root lies in.
      {"X.MOTR", "Small.png", u"transition"_qs, u"above"_qs, false},
      {"A/X.moef", "A/small.png", u"effect"_qs, u"root"_qs, true},
      {"A/B/X.motn", "small.png", u"generator"_qs, u"A"_qs, false},
      {"A/B/C/X.Moti", "A/B/C/large.png", u"title"_qs, u"B"_qs, false},
      {"P.bundle/B/C/X.motr", "P.bundle/B/C/small.png", u"transition"_qs, u"B"_qs, true},
  };
  for (const auto& [path, beside, kind, category, preview] : rows) {
    const TemporaryTree tree;
    for (const QByteArray& file : {path, beside}) tree.file("above/root/" + file);
    const auto items = scan(tree.path("above/root")).items;
    ASSERT_EQ(items.size(), 1) << path.data();
    EXPECT_EQ(rawValue(items[0].kind), kind) << path.data();
    EXPECT_EQ(items[0].category(), category) << path.data();
    EXPECT_EQ(items[0].previewURL().has_value(), preview) << path.data();
  }
}

}  // namespace
