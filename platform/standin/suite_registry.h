#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/standin/host_objects.h"
#include "platform/standin/operation_registry.h"
#include "platform/suites/host_suites.h"

/// A suite under its name and version: one of the host's own, or one that a plug-in registered.
struct OpaqueSuite {
  std::string name;
  int32_t version = 0;
  const void* functions = nullptr;
  PluginRef plugin = nullptr;  // its owner; null for the host
  int32_t internalVersion = 0;
  bool isAbsent = false;  // Acquire behaves as if there were no such suite
  size_t users = 0;
  standin::OperationRegistry::Operation* acquire = nullptr;
  standin::OperationRegistry::Operation* release = nullptr;
};

namespace standin {

/// The suites that can be acquired, and the number of users of each. The host's tables are static;
/// a plug-in's table stays the plug-in's.
class SuiteRegistry {
 public:
  /// Each suite adds an "acquire/..." and a "release/..." to the operations, which must outlive
  /// this.
  explicit SuiteRegistry(OperationRegistry& operationRegistry) : operations(operationRegistry) {}

  /// Adds a suite; null when this name and version are taken.
  SuiteHandle Add(std::string_view name, int32_t version, const void* functions,
                  PluginRef plugin = nullptr, int32_t internalVersion = 0);
  /// Removes the suites that the plug-in registered, in use or not.
  void RemoveSuitesOf(PluginRef plugin);

  ResultCode Acquire(const char* name, int32_t version, const void** functions);
  ResultCode Release(const char* name, int32_t version);

  /// The function table, without counting a user; null for an unknown suite.
  const void* Find(std::string_view name, int32_t version) const;
  template <typename Suite>
  const Suite* Find() const {
    return static_cast<const Suite*>(Find(Suite::kName, Suite::kVersion));
  }

  /// Makes Acquire fail for the suite, or succeed again. Its present users keep it. Throws
  /// std::invalid_argument for an unknown name.
  void SetAbsent(std::string_view name, bool isAbsent = true);

  /// 0 for an unknown suite.
  size_t Users(std::string_view name) const;
  /// Whether a suite that the plug-in registered has users.
  bool IsInUse(PluginRef plugin) const;
  const HandleRegistry<OpaqueSuite>& Suites() const { return suites; }

 private:
  OpaqueSuite* FindSuite(std::string_view name, int32_t version) const;
  bool HasOtherVersion(std::string_view name, int32_t version) const;

  OperationRegistry& operations;
  HandleRegistry<OpaqueSuite> suites;
};

}  // namespace standin
