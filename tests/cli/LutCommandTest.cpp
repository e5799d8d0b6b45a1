#include "CommandLine.h"

TEST_F(CommandLine, PreparesLutsIntoTheLibraryAskedFor) {
  tree.file("Pack/a.cube", "LUT_3D_SIZE 2\n0 0 0\n");
  const QString root = u" --root "_s + tree.text("Pack");
  const QString prepare = u"lut prepare "_s + tree.text("Pack/a.cube") + root;
  const QString own = json(prepare + u" --json"_s)[u"path"].toString();
  EXPECT_TRUE(own.startsWith(tree.text("Vantrelo Orvex/FinalCut/Managed LUTs/"))) << own;
  EXPECT_TRUE(QFile::exists(own));
  const QString other = run(prepare + u" --library "_s + tree.text("L/")).output;
  EXPECT_TRUE(other.startsWith(tree.text("L/"))) << other;
  EXPECT_TRUE(QFile::exists(other.trimmed()));

  for (const char* folder : {"Pack", "Pack/a.cube/"})
    expectFailure(u"lut prepare "_s + tree.text(folder) + root, 1, u"paket klasörü dışında");
  // Through the helper that the program lies in.
  const ProgramResult answered = run(u"lut apply --json "_s + tree.text("Pack/a.cube") + root);
  EXPECT_EQ(answered.exitCode, 1);
  EXPECT_EQ(answered.errors, u"");
  EXPECT_EQ(answered.json()[u"succeeded"], false);
  EXPECT_TRUE(answered.json()[u"message"].toString().contains(u"2. satır")) << answered.output;
}
