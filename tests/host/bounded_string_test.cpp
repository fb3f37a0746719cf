#include "host/bounded_string.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <string>

namespace {

TEST(BoundedCopy, CopiesAtMostCountCharactersAndAlwaysTerminates) {
  const struct {
    const char* source;
    size_t size;
    size_t count;
    int32_t status;
    const char* result;
  } cases[] = {
      {"Plugin", 7, 7, 0, "Plugin"},
      {"Plugin", 6, 6, kTruncated, "Plugi"},
      {"Plugin", 6, 99, kTruncated, "Plugi"},
      {"Plugin", 8, 3, 0, "Plu"},
      {"Plugin", 4, 3, 0, "Plu"},
      {"Plugin", 3, 3, kTruncated, "Pl"},
      {"Plugin", 8, 0, 0, ""},
      {nullptr, 8, 3, kBadArgument, ""},
      {"", 1, 5, 0, ""},
  };
  for (const auto& [source, size, count, status, result] : cases) {
    SCOPED_TRACE(std::string(result) + ": at most " + std::to_string(count));
    char buffer[] = "#########";
    EXPECT_EQ(BoundedCopy(buffer, size, source, count), status);
    EXPECT_STREQ(buffer, result);
    EXPECT_EQ(buffer[size], '#');
  }
  EXPECT_EQ(BoundedCopy(nullptr, 0, "Plugin", 0), 0);
  EXPECT_EQ(BoundedCopy(nullptr, 8, "Plugin", 8), kBadArgument);
  EXPECT_EQ(BoundedCopy(nullptr, 0, "Plugin", 8), kBadArgument);
  char buffer[] = "before";
  EXPECT_EQ(BoundedCopy(buffer, 0, "Plugin", 8), kBadArgument);
  EXPECT_STREQ(buffer, "");
}

int32_t Format(char* destination, size_t size, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int32_t outcome = BoundedFormat(destination, size, format, arguments);
  va_end(arguments);
  return outcome;
}

TEST(BoundedFormat, ReturnsTheLengthOrAFailureAndAlwaysTerminates) {
  char buffer[10] = "###";
  EXPECT_EQ(Format(nullptr, 4, "x"), kBadArgument);
  EXPECT_EQ(Format(buffer, 0, "x"), kBadArgument);
  EXPECT_STREQ(buffer, "");
  buffer[0] = '#';
  EXPECT_EQ(Format(buffer, 4, nullptr), kBadArgument);
  EXPECT_STREQ(buffer, "");
  EXPECT_EQ(FormatInto(buffer, "%s", ""), 0);
  EXPECT_EQ(FormatInto(buffer, "%d", -214748364), kTruncated) << "no room for the terminator";
  EXPECT_STREQ(buffer, "-21474836");
  EXPECT_EQ(FormatInto(buffer, "%s", "ninechars"), 9);
  EXPECT_STREQ(buffer, "ninechars");
  EXPECT_EQ(FormatInto(buffer, "%lc", wint_t{0x7FFFFFFF}), kTruncated) << "no such character";
}

}  // namespace
