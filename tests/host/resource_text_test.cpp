#include "host/resource_text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>

#include "host/suite_access.h"

namespace {

template <bool kWrites, ResultCode kAnswer>
ResultCode GetListString(ModuleRef, int32_t, int32_t, char* buffer, size_t) {
  if (kWrites) std::memcpy(buffer, "x", sizeof "x");
  return kAnswer;
}

TEST(ReadListEntry, ReturnsTextOnlyIfTheHostWritesItAndSucceeds) {
  const std::pair<decltype(KDMBasicSuite::GetListString), const char*> cases[] = {
      {&GetListString<true, ResultCode::kSuccess>, "x"},
      {&GetListString<true, ResultCode::kCannot>, ""},
      {&GetListString<false, ResultCode::kSuccess>, ""},
  };
  for (const auto& [getListString, text] : cases) {
    const KDMBasicSuite host = {getListString, {}, nullptr};
    heldSuite<KDMBasicSuite> = &host;
    char buffer[] = "earlier text";
    EXPECT_EQ(ReadListEntry(nullptr, 1, 1, buffer, sizeof(buffer)), *text != '\0');
    EXPECT_STREQ(buffer, text);
  }
  heldSuite<KDMBasicSuite> = nullptr;
}

}  // namespace
