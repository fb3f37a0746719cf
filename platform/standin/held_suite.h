#pragma once

#include "platform/standin/host.h"

namespace standin {

/// A suite, the host's or a plug-in's, in use by a caller in the host until the end of the scope.
template <typename Suite>
class HeldSuite {
 public:
  explicit HeldSuite(Host& owner)
      : host(owner), code(owner.Suites().Acquire(Suite::kName, Suite::kVersion, &functions)) {}
  ~HeldSuite() {
    try {
      if (functions) static_cast<void>(host.Suites().Release(Suite::kName, Suite::kVersion));
    } catch (...) {  // Leftovers names a suite that stays held
    }
  }

  HeldSuite(const HeldSuite&) = delete;
  HeldSuite& operator=(const HeldSuite&) = delete;

  explicit operator bool() const { return functions; }
  const Suite* operator->() const { return static_cast<const Suite*>(functions); }
  /// Why there is no suite.
  ResultCode Code() const { return code; }

 private:
  Host& host;
  const void* functions = nullptr;
  ResultCode code;
};

}  // namespace standin
