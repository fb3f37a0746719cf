#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/standin/host_objects.h"
#include "platform/standin/operation_registry.h"
#include "platform/suites/host_suites.h"

/// A suite: one of the host's own, or one that a plug-in has registered.
struct OpaqueSuite {
  std::string name;
  int32_t version = 0;
  const void* functions = nullptr;
  PluginRef plugin = nullptr;  // the owner; null for the host
  int32_t internalVersion = 0;
  bool isAbsent = false;  // Acquire fails as for an unknown suite
  size_t users = 0;       // acquisitions minus releases
  standin::OperationRegistry::Operation* acquire = nullptr;
  standin::OperationRegistry::Operation* release = nullptr;
};

namespace standin {

/// The suites that can be acquired, and the number of users of each. The owner of a function table
/// keeps it until the suite is removed. Main thread only.
class SuiteRegistry {
 public:
  /// Each suite adds an "acquire/..." and a "release/..." to the operations, which must outlive the
  /// registry.
  explicit SuiteRegistry(OperationRegistry& operationRegistry) : operations(operationRegistry) {}

  /// Adds a suite. Null if the name is registered with this version already.
  SuiteHandle Add(std::string_view name, int32_t version, const void* functions,
                  PluginRef plugin = nullptr, int32_t internalVersion = 0);
  /// Removes the plug-in's suites, even those in use.
  void RemoveSuitesOf(PluginRef plugin);

  /// The operations of the basic suite (host_suites.h), with the codes of host_codes.h.
  ResultCode Acquire(const char* name, int32_t version, const void** functions);
  ResultCode Release(const char* name, int32_t version);

  /// The function table, without an acquisition; null for an unknown suite.
  const void* Find(std::string_view name, int32_t version) const;
  template <typename Suite>
  const Suite* Find() const {
    return static_cast<const Suite*>(Find(Suite::kName, Suite::kVersion));
  }

  /// Makes Acquire fail for all versions of the suite, or succeed again. Present users keep it.
  /// Throws std::invalid_argument for an unknown name.
  void SetAbsent(std::string_view name, bool isAbsent = true);

  /// The number of users of all versions; 0 for an unknown suite.
  size_t Users(std::string_view name) const;
  /// Whether a suite of the plug-in has users.
  bool IsInUse(PluginRef plugin) const;
  const HandleRegistry<OpaqueSuite>& Suites() const { return suites; }

 private:
  OpaqueSuite* FindSuite(std::string_view name, int32_t version) const;
  bool HasOtherVersion(std::string_view name, int32_t version) const;

  OperationRegistry& operations;
  HandleRegistry<OpaqueSuite> suites;
};

/// Acquires a suite and releases it at the end of the scope.
template <typename Suite>
class ScopedSuite {
 public:
  explicit ScopedSuite(SuiteRegistry& suites)
      : registry(suites), code(registry.Acquire(Suite::kName, Suite::kVersion, &functions)) {}
  ~ScopedSuite() {
    try {
      if (functions) static_cast<void>(registry.Release(Suite::kName, Suite::kVersion));
    } catch (...) {  // an injected fault; Leftovers lists the suite
    }
  }

  ScopedSuite(const ScopedSuite&) = delete;
  ScopedSuite& operator=(const ScopedSuite&) = delete;

  explicit operator bool() const { return functions; }
  const Suite* operator->() const { return static_cast<const Suite*>(functions); }
  /// The result of the acquisition.
  ResultCode Code() const { return code; }

 private:
  SuiteRegistry& registry;
  const void* functions = nullptr;
  ResultCode code;
};

}  // namespace standin
