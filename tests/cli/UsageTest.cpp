#include "CommandLine.h"

// Before anything is done or sent.
TEST_F(CommandLine, RefusesWrongUsage) {
  qputenv("ORVEX_SERVICE", "http://localhost");
  const std::pair<const char16_t*, QStringList> rows[]{
      {u"orvex host [status|", {u""_s, u"dance"_s}},
      {u"\"dance\" diye bir komut yok.", {u"dance"_s}},
      {u"orvex audio [--json]", {u"audio x"_s, u"audio --json x"_s}},
      {u"Kullanım: orvex luts DIR [--json]", {u"luts"_s, u"luts a b"_s, u"luts --xml a"_s}},
      {u"Kullanım: orvex host ",
       {u"host stop"_s, u"host Status"_s, u"host start 1"_s, u"host seconds"_s,
        u"host seconds 1,5"_s, u"host seconds nan"_s, u"host seconds 1 2"_s, u"host frames 1.5"_s,
        u"host frames 99999999999999999999"_s, u"host action a b"_s, u"host --jason"_s}},
      {u"Kullanım: orvex lut ",
       {u"lut"_s, u"lut copy a --root r"_s, u"lut prepare --root r"_s, u"lut prepare a"_s,
        u"lut prepare a --root"_s, u"lut prepare a b --root r"_s,
        u"lut apply a --root r --library l"_s}},
      {u"Kullanım: orvex release ", {u"release x"_s}},
      {u"Kullanım: orvex packs ",
       {u"packs remove"_s, u"packs install"_s, u"packs install a b"_s, u"packs --force"_s}},
      {u"Kullanım: orvex request ",
       {u"request"_s, u"request --title T"_s, u"request --title T --detail"_s,
        u"request --title T --detail D --module x"_s, u"request --title T --detail D x"_s}},
      {u"Kullanım: orvex cloud ",
       {u"cloud publish"_s, u"cloud build"_s, u"cloud build d --port 1"_s,
        u"cloud serve d --port 65536"_s, u"cloud serve d --rate"_s, u"cloud serve d --cert x"_s,
        u"cloud serve d --address 0.0.0.0"_s}},
      {u"http://localhost", {u"packs"_s}},
  };
  for (const auto& [reason, lines] : rows)
    for (const QString& line : lines) expectFailure(line, 2, reason);
  EXPECT_EQ(run(u"--help"_s).exitCode, 0);
  EXPECT_TRUE(run(u"--version"_s).output.startsWith(u"orvex 0."));
}
