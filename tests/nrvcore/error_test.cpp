#include "platform/nrvcore/error.h"

#include <gtest/gtest.h>

#include <optional>

using namespace nrvcore;
using namespace nrvcore::config;

TEST(Error, CarriesEverythingThatItWasThrownWith) {
  std::optional<Error> caught;
  {
    std::string key = "$$$/Test/Error=No %1 at %2.";
    try {
      ThrowError(ErrorLevel::kNotice, key.c_str(), 7, -8, true, ReplacementValue(u"tiles"),
                 ReplacementValue(u"all"), {}, {});
    } catch (const std::exception& error) {
      caught.emplace(dynamic_cast<const Error&>(error));
    }
  }
  EXPECT_STREQ(caught->what(), "$$$/Test/Error=No %1 at %2.");
  EXPECT_STREQ(caught->Key(), caught->what());
  EXPECT_EQ(caught->Text(), u"No tiles at all.");
  EXPECT_EQ(caught->Level(), ErrorLevel::kNotice);
  EXPECT_EQ(caught->Number(), 7u);
  EXPECT_EQ(caught->Code(), -8);
  EXPECT_TRUE(caught->Flag());
}
