#include "platform/standin/string_list.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/standin/resource_error.h"

namespace {

using standin::ResourceError;
using standin::StringList;

TEST(StringListTest, ReadsEntriesWithGaps) {
  std::istringstream text(
      "# about\n\n1\tfirst\r\n3\twith\ttab and # and %s\n12\tm\xC3\xB6glich\n20\t");
  const StringList list = StringList::Read(text, "list.txt");
  ASSERT_EQ(list.Entries().size(), 4U);
  EXPECT_EQ(*list.Find(1), "first");
  EXPECT_EQ(list.Find(2), nullptr);
  EXPECT_EQ(*list.Find(3), "with\ttab and # and %s");
  EXPECT_EQ(*list.Find(12), "m\xC3\xB6glich");
  EXPECT_EQ(*list.Find(20), "");
}

TEST(StringListTest, RefusesDamageWithFileLineAndReason) {
  const struct {
    std::string text;
    const char* refusal;
  } cases[] = {
      {"1\ta\n2 b\n", "list.txt:2: no tab between index and text"},
      {"1\ta\n\n1\tb\n", "list.txt:3: index 1 after index 1"},
      {"5\ta\n4\tb\n", "list.txt:2: index 4 after index 5"},
      {"0\ta\n", "list.txt:1: \"0\" is no index from 1 to 32767"},
      {"-3\ta\n", "list.txt:1: \"-3\" is no index from 1 to 32767"},
      {"1x\ta\n", "list.txt:1: \"1x\" is no index from 1 to 32767"},
      {"\ta\n", "list.txt:1: \"\" is no index from 1 to 32767"},
      {"99999999999\ta\n", "list.txt:1: \"99999999999\" is no index from 1 to 32767"},
      {"1\t\xC3(\n", "list.txt:1: the line is not UTF-8"},
      {std::string("1\ta\0b\n", 6), "list.txt:1: the line contains a NUL"},
      {"1\t" + std::string(5000, 'a'), "list.txt:1: the line is longer than 4096 bytes"},
  };
  for (const auto& test : cases) {
    std::istringstream text(test.text);
    try {
      StringList::Read(text, "list.txt");
      ADD_FAILURE() << "read: " << test.text;
    } catch (const ResourceError& error) {
      EXPECT_STREQ(error.what(), test.refusal);
    }
  }
}

}  // namespace
