#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/standin/handle_book.h"
#include "platform/standin/operation_book.h"
#include "platform/suites/host_suites.h"

/// A suite under its name and version: one of the host's own, or one that a plug-in registered.
struct OpaqueSuite {
  std::string name;
  int32_t version = 0;
  const void* functions = nullptr;
  PluginRef plugin = nullptr;  // null for the host's own
  int32_t internalVersion = 0;
  bool isAbsent = false;  // as if the host did not have it
  size_t users = 0;
  standin::OperationBook::Operation* acquire = nullptr;
  standin::OperationBook::Operation* release = nullptr;
};

namespace standin {

/// All suites that can be acquired, and how many users each has.
class SuiteBook {
 public:
  /// The book of operations gets an "acquire/..." and a "release/..." for each suite.
  explicit SuiteBook(OperationBook& book) : operations(book) {}

  /// Adds a suite; null when there is one of this name and version.
  SuiteHandle Add(std::string_view name, int32_t version, const void* functions,
                  PluginRef plugin = nullptr, int32_t internalVersion = 0);
  /// Withdraws what the plug-in registered, in use or not.
  void Withdraw(PluginRef plugin);

  ResultCode Acquire(const char* name, int32_t version, const void** functions);
  ResultCode Release(const char* name, int32_t version);

  /// The function table, without counting a user; null when there is no such suite.
  const void* Find(std::string_view name, int32_t version) const;
  template <typename Suite>
  const Suite* Find() const {
    return static_cast<const Suite*>(Find(Suite::kName, Suite::kVersion));
  }

  /// Has the host do without the suite, or have it again. Users of it are not affected.
  void SetAbsent(std::string_view name, bool isAbsent = true);

  /// 0 for an unknown suite.
  size_t Users(std::string_view name) const;
  /// Whether a suite that the plug-in registered has users.
  bool IsInUse(PluginRef plugin) const;
  const HandleBook<OpaqueSuite>& Suites() const { return suites; }

 private:
  OpaqueSuite* FindSuite(std::string_view name, int32_t version) const;
  bool HasOtherVersion(std::string_view name, int32_t version) const;

  OperationBook& operations;
  HandleBook<OpaqueSuite> suites;
};

}  // namespace standin
