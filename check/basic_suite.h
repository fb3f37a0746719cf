#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>

#include "check/findings.h"
#include "platform/standin/host.h"

namespace check {

/// A basic suite that counts its calls and passes them on to the host's own. It returns other
/// tables for the suites in `tables`. There is one for each number; checks put it into messages.
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
  /// Counts from the previous call of this function.
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
