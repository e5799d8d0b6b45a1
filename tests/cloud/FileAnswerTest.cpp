#include "cloud/FileAnswer.h"

TEST(FileAnswer, DecidesByWhatTheClientHasAndWants) {
  const QByteArray tag = "\"1-2\"";
  constexpr qint64 kModified = 784111777;
  const QByteArray date = "Sun, 06 Nov 1994 08:49:37 GMT";
  ASSERT_EQ(httpDate(kModified), date);
  const FileAnswer whole{200, 0, 100};
  const FileAnswer unchanged{304, 0, 0};
  const FileAnswer outside{416, 0, 0};
  const std::pair<FileConditions, FileAnswer> rows[]{
      {{}, whole},
      {{.ifNoneMatch = tag}, unchanged},
      {{.ifNoneMatch = "\"x\", W/\"1-2\""}, unchanged},
      {{.ifNoneMatch = "\"x\""}, whole},
      // The tag knows better than the date.
      {{.ifNoneMatch = "\"x\"", .ifModifiedSince = date}, whole},
      {{.ifModifiedSince = date}, unchanged},
      {{.ifModifiedSince = "Sun, 06 Nov 1994 08:49:36 GMT"}, whole},
      {{.range = "bytes=0-0"}, {206, 0, 1}},
      {{.range = "bytes=10-"}, {206, 10, 90}},
      {{.range = "bytes=90-1000"}, {206, 90, 10}},
      {{.range = "bytes=-5"}, {206, 95, 5}},
      {{.range = "bytes=0-99999999999999999999999"}, {206, 0, 100}},
      {{.range = "bytes=100-"}, outside},
      {{.range = "bytes=-0"}, outside},
      {{.range = "bytes=5-4"}, whole},
      {{.range = "bytes=+1-2"}, whole},
      {{.range = "bytes=0-1,5-6"}, whole},
      {{.ifRange = tag, .range = "bytes=1-2"}, {206, 1, 2}},
      {{.ifRange = "\"x\"", .range = "bytes=1-2"}, whole},
      {{.ifRange = "W/\"1-2\"", .range = "bytes=1-2"}, whole},
      {{.ifRange = date, .range = "bytes=1-2"}, {206, 1, 2}},
      {{.ifRange = "Mon, 07 Nov 1994 08:49:37 GMT", .range = "bytes=1-2"}, whole},
  };
  for (const auto& row : rows)
    EXPECT_EQ(answerFor(row.first, tag, kModified, 100), row.second) << &row - rows;
  EXPECT_EQ(answerFor({.range = "bytes=0-"}, tag, kModified, 0), outside);
}
