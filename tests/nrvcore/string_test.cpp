#include "platform/nrvcore/string.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

using nrvcore::String;

// Short texts are stored in the string, long ones are shared. Both must behave the same.
TEST(String, CopiesAreIndependentAtEveryLength) {
  for (const size_t length : {0, 1, 30, 31, 32, 33, 254, 255, 256, 1000}) {
    SCOPED_TRACE(length);
    const std::string text(length, 'x');
    const String original{std::string_view(text)};
    EXPECT_EQ(original.View(), text);
    EXPECT_EQ(original.View().data()[length], '\0');
    EXPECT_EQ(original.IsEmpty(), length == 0);

    String copy = original;
    copy.Append("y");
    EXPECT_EQ(copy.View(), text + "y");
    EXPECT_FALSE(copy == original);
    copy = original;
    EXPECT_EQ(copy, original);
    const String& itself = copy;
    copy = itself;
    EXPECT_EQ(copy, original);

    const String taken = std::move(copy);
    EXPECT_EQ(taken, original);
    EXPECT_TRUE(copy.IsEmpty()) << "a string that was moved from is empty";  // NOLINT
    copy = "another";
    EXPECT_EQ(copy, "another");
    EXPECT_EQ(original.View(), text);
  }
  EXPECT_TRUE(String(nullptr).IsEmpty());
}

}  // namespace
