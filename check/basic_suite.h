#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>

#include "check/findings.h"
#include "platform/standin/host.h"

namespace check {

/// A basic suite that passes calls on to the host's own: it counts them, and hands out other tables
/// for some suites. There is one for each number.
template <int kNumber>
struct BasicSuite {
  static ResultCode Acquire(const char* name, int32_t version, const void** table) {
    ++acquired;
    const ResultCode code = standin::Host::Current().BasicSuite()->Acquire(name, version, table);
    if (const auto other = tables.find(name); other != tables.end()) *table = other->second;
    return code;
  }
  static ResultCode Release(const char* name, int32_t version) {
    ++released;
    return standin::Host::Current().BasicSuite()->Release(name, version);
  }
  /// Since the last call.
  static void ExpectCalls(size_t acquisitions, size_t releases) {
    const Trying trying("basic suite " + std::to_string(kNumber));
    Expect("suites acquired", std::exchange(acquired, 0), acquisitions);
    Expect("suites released", std::exchange(released, 0), releases);
  }

  inline static std::map<std::string, const void*> tables;
  inline static size_t acquired = 0;
  inline static size_t released = 0;
  inline static QPBasicSuite table = {&Acquire, &Release};
};

}  // namespace check
