#pragma once

#include <memory>

namespace standin {

/// Tells how many objects of a kind are alive: each holds a copy of the kind's one token.
using LiveToken = std::shared_ptr<const void>;

inline LiveToken MakeLiveToken() {
  return std::make_shared<char>();
}

/// How many copies there are beside this one.
inline long CountLive(const LiveToken& token) {
  return token.use_count() - 1;
}

}  // namespace standin
