#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <functional>
#include <optional>
#include <string>

#include "check/random.h"

/// Campaigns come in a short form, for every test run, and in a long one, which is played when the
/// environment says TESSERAE_CAMPAIGN=long.
namespace campaign {

/// The one or the other number.
size_t Count(size_t inShort, size_t inLong);

/// The step from one case to the next that is played: 1 in the long form; `inShort`, and more where
/// a sanitizer slows everything down, in the short one.
size_t Step(size_t inShort);

using check::Random;

/// Plays with one seed after the other until one fails, which the failure then names. The short
/// form has the same seeds each time, the long one others; TESSERAE_SEED=n plays that one alone.
void ForEachSeed(size_t seeds, const std::function<void(Random& random)>& play);

/// What `read` makes of it; nothing when it is refused with an Error that says something.
template <typename Error, typename Read>
auto ReadOrRefused(Read read) -> std::optional<decltype(read())> try {
  return read();
} catch (const Error& error) {
  EXPECT_GT(std::strlen(error.what()), 3u);
  return std::nullopt;
}

}  // namespace campaign
