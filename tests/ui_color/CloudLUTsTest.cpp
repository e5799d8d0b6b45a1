#include "ui/color/CloudLUTs.h"

TEST(CloudLUTs, DisplayName) {
  const std::map<QString, std::optional<QString>> names{
      {u"Film.Look.cube"_s, u"Film.Look"_s},
      {u"lutpack3.cube"_s, u"LUT Pack 03"_s},
      {u"LUTPack012.CUBE"_s, u"LUT Pack 12"_s},
      {u"lutpack0.cube"_s, u"LUT Pack 00"_s},
      {u"lutpack7 sıcak.cube"_s, u"LUT Pack 07 sıcak"_s},
      {u"lutpack.cube"_s, u"lutpack"_s},
      {u"my lutpack3.cube"_s, u"my lutpack3"_s},
      {u"İ.cube"_s, u"İ"_s},
      {u"sub/lutpack3.cube"_s, u"LUT Pack 03"_s},
      {u"..cube"_s, u"."_s},
      {u".cube"_s, {}},
      {u"sub/.cube"_s, {}},
      {u"sub.cube/x"_s, {}},
      {u"a.txt"_s, {}},
      {u"../x.cube"_s, {}},
      {u"a/../../x.cube"_s, {}}};
  for (const auto& [file, name] : names) EXPECT_EQ(CloudLUTs::displayName(file), name);
}
