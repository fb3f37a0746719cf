#include "tests/support/campaign.h"

#include <cstdlib>
#include <string_view>

namespace campaign {
namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr size_t kSlowdown = 2;
#else
constexpr size_t kSlowdown = 1;
#endif

std::string_view Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

size_t Count(size_t inShort, size_t inLong) {
  return Environment("TESSERAE_CAMPAIGN") == "long" ? inLong : inShort;
}

size_t Step(size_t inShort) {
  return Count(inShort * kSlowdown, 1);
}

void ForEachSeed(size_t seeds, const std::function<void(Random& random)>& play) {
  const std::string wanted(Environment("TESSERAE_SEED"));
  uint64_t seed = Count(0, std::random_device()());
  if (!wanted.empty()) {
    seed = std::stoull(wanted);
    seeds = 1;
  }
  for (; seeds > 0 && !testing::Test::HasFailure(); --seeds, ++seed) {
    SCOPED_TRACE("TESSERAE_SEED=" + std::to_string(seed) + " plays this again");
    Random random(seed);
    play(random);
  }
}

}  // namespace campaign
