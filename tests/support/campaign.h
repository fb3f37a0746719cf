#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <functional>
#include <optional>
#include <random>
#include <string>

/// Campaigns come in a short form, for every test run, and in a long one, which is played when the
/// environment says TESSERAE_CAMPAIGN=long.
namespace campaign {

/// The one or the other number.
size_t Count(size_t inShort, size_t inLong);

/// The step from one case to the next that is played: 1 in the long form; `inShort`, and more where
/// a sanitizer slows everything down, in the short one.
size_t Step(size_t inShort);

using Random = std::mt19937_64;

/// Plays with one seed after the other until one fails, which the failure then names. The short
/// form has the same seeds each time, the long one others; TESSERAE_SEED=n plays that one alone.
void ForEachSeed(size_t seeds, const std::function<void(Random& random)>& play);

/// From 0 to `end` - 1.
inline size_t Below(Random& random, size_t end) {
  return random() % end;
}

/// True once in `times` on the average.
inline bool Once(Random& random, size_t times) {
  return Below(random, times) == 0;
}

template <typename Choices>
const auto& Pick(Random& random, const Choices& choices) {
  return *(std::begin(choices) + static_cast<std::ptrdiff_t>(Below(random, std::size(choices))));
}

template <typename Record>
std::string Bytes(const Record& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

/// What `read` makes of it; nothing when it is refused with an Error that says something.
template <typename Error, typename Read>
auto ReadOrRefused(Read read) -> std::optional<decltype(read())> try {
  return read();
} catch (const Error& error) {
  EXPECT_GT(std::strlen(error.what()), 3u);
  return std::nullopt;
}

/// The same with a few bytes or longer pieces changed, lost, doubled or out of place.
std::string Damaged(Random& random, std::string bytes);

}  // namespace campaign
