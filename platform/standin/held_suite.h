#pragma once

#include "platform/standin/host.h"

namespace standin {

/// Acquires a suite, the host's or a plug-in's, and releases it at the end of the scope.
template <typename Suite>
class HeldSuite {
 public:
  explicit HeldSuite(Host& owner)
      : host(owner), code(owner.Suites().Acquire(Suite::kName, Suite::kVersion, &functions)) {}
  ~HeldSuite() {
    try {
      if (functions) static_cast<void>(host.Suites().Release(Suite::kName, Suite::kVersion));
    } catch (...) {  // Leftovers lists the suite
    }
  }

  HeldSuite(const HeldSuite&) = delete;
  HeldSuite& operator=(const HeldSuite&) = delete;

  explicit operator bool() const { return functions; }
  const Suite* operator->() const { return static_cast<const Suite*>(functions); }
  /// The result of the acquisition.
  ResultCode Code() const { return code; }

 private:
  Host& host;
  const void* functions = nullptr;
  ResultCode code;
};

}  // namespace standin
