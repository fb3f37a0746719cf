#include "platform/standin/string_list.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/standin/resource_error.h"

namespace {

using standin::StringList;

TEST(StringListTest, ReadsEntriesWithGaps) {
  std::istringstream text("# about\n\n1\tfirst\r\n3\twith\ttab and # and %s\n12\t");
  const StringList list = StringList::Read(text, "list.txt");
  ASSERT_EQ(list.Entries().size(), 3U);
  EXPECT_EQ(*list.Find(1), "first");
  EXPECT_EQ(list.Find(2), nullptr);
  EXPECT_EQ(*list.Find(3), "with\ttab and # and %s");
  EXPECT_EQ(*list.Find(12), "");
}

TEST(StringListTest, RefusesDamageWithFileLineAndReason) {
  const std::pair<std::string, const char*> cases[] = {
      {"1\ta\n2 b\n", "list.txt:2: no tab between index and text"},
      {"1\ta\n\n1\tb\n", "list.txt:3: index 1 after index 1"},
      {"1x\ta\n", "list.txt:1: \"1x\" is no index from 1 to 32767"},
      {"99999999999\ta\n", "list.txt:1: \"99999999999\" is no index from 1 to 32767"},
      {"1\t\xC3(\n", "list.txt:1: the line is not UTF-8"},
      {std::string("1\ta\0b\n", 6), "list.txt:1: the line contains a NUL"},
      {"1\t" + std::string(5000, 'a'), "list.txt:1: the line is longer than 4096 bytes"},
  };
  for (const auto& [damaged, refusal] : cases) {
    std::istringstream text(damaged);
    try {
      StringList::Read(text, "list.txt");
      ADD_FAILURE() << "read: " << damaged;
    } catch (const standin::ResourceError& error) {
      EXPECT_STREQ(error.what(), refusal);
    }
  }
}

}  // namespace
