#include "host/bounded_string.h"

#include <gtest/gtest.h>

#include <cstring>
#include <cwchar>
#include <string>

namespace {

TEST(BoundedCopy, FitsCutsAndNeverOverruns) {
  struct Case {
    const char* source;
    size_t size;
    size_t count;
    int32_t status;
    const char* result;
  };
  const Case cases[] = {
      {"Plugin", 8, 8, 0, "Plugin"},     {"Plugin", 7, 7, 0, "Plugin"},
      {"Plugin", 6, 6, kCut, "Plugi"},   {"Plugin", 6, 99, kCut, "Plugi"},
      {"Plugin", 8, 3, 0, "Plu"},        {"Plugin", 4, 3, 0, "Plu"},
      {"Plugin", 3, 3, kCut, "Pl"},      {"Plugin", 8, 0, 0, ""},
      {nullptr, 8, 3, kBadArgument, ""}, {"", 1, 5, 0, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.source ? c.source : "null") + " into " + std::to_string(c.size) +
                 ", at most " + std::to_string(c.count));
    char buffer[10];
    std::memset(buffer, '#', sizeof(buffer));
    EXPECT_EQ(BoundedCopy(buffer, c.size, c.source, c.count), c.status);
    EXPECT_STREQ(buffer, c.result);
    EXPECT_EQ(buffer[c.size], '#');
  }
  EXPECT_EQ(BoundedCopy(nullptr, 0, "Plugin", 0), 0);
  EXPECT_EQ(BoundedCopy(nullptr, 8, "Plugin", 8), kBadArgument);
  EXPECT_EQ(BoundedCopy(nullptr, 0, "Plugin", 8), kBadArgument);
  char untouched = '#';
  EXPECT_EQ(BoundedCopy(&untouched, 0, "Plugin", 8), kBadArgument);
  EXPECT_EQ(untouched, '#');
}

TEST(BoundedFormat, CutsAndSaysSo) {
  char buffer[10];
  EXPECT_EQ(FormatInto(buffer, "%d", -43), 3);
  EXPECT_STREQ(buffer, "-43");
  EXPECT_EQ(FormatInto(buffer, "%d", -2147483647), kCut);
  EXPECT_STREQ(buffer, "-21474836");
  EXPECT_EQ(FormatInto(buffer, "%s", "ninechars"), 9);
}

int32_t Format(char* destination, size_t size, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int32_t outcome = BoundedFormat(destination, size, format, arguments);
  va_end(arguments);
  return outcome;
}

TEST(BoundedFormat, RefusesWhatItCannotFormat) {
  char buffer[4] = "###";
  EXPECT_EQ(Format(nullptr, 4, "x"), kBadArgument);
  EXPECT_EQ(Format(buffer, 0, "x"), kBadArgument);
  EXPECT_STREQ(buffer, "###");
  EXPECT_EQ(Format(buffer, 4, nullptr), kBadArgument);
  EXPECT_STREQ(buffer, "");
  EXPECT_EQ(Format(buffer, 4, "%lc", wint_t{0x7FFFFFFF}), kCut) << "no such character";
}

}  // namespace
