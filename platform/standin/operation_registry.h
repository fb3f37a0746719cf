#pragma once

#include <algorithm>
#include <cstddef>
#include <exception>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/suites/result_code.h"

namespace standin {

/// An operation's name as a template argument.
template <size_t kSize>
struct OperationName {
  consteval OperationName(const char (&name)[kSize]) { std::copy_n(name, kSize, text); }
  char text[kSize];
};

/// The host's operations by name. Each operation checks in before it does its work: its calls are
/// counted, and tests can inject faults. Names are "<suite>/<operation>", for example
/// "QP Plug-ins Suite/SetPluginName", "acquire/<suite>" and "release/<suite>". Main thread only.
class OperationRegistry {
 public:
  struct InjectedFault {
    size_t callsFromNow = 1;  // 1 is the next call
    ResultCode code = ResultCode::kSuccess;
    std::exception_ptr exception;  // thrown instead of returning `code`
  };

  struct Operation {
    std::string name;
    size_t calls = 0;
    std::optional<InjectedFault> fault;
  };

  /// Adds the names of all CheckIn<...> in the program.
  void DeclareAll();
  /// Adds a name. The operation's address stays the same.
  Operation& Declare(const std::string& name);
  /// All names, sorted.
  std::vector<std::string> Names() const;

  /// Injects a fault: one call of the operation returns `code` without doing its work. An operation
  /// without a result code returns null or NaN, or has no effect. Replaces an earlier fault of the
  /// operation. Throws std::invalid_argument for an unknown name.
  void Refuse(std::string_view name, ResultCode code, size_t callsFromNow = 1);
  /// As Refuse, but the call throws.
  void Throw(std::string_view name, std::exception_ptr exception, size_t callsFromNow = 1);
  void ClearFaults();
  /// The number of calls that failed because of a fault.
  size_t InjectedFaults() const { return injectedFaults; }

  /// The number of calls of the operation, including those that failed. Throws as Refuse does.
  size_t Calls(std::string_view name) { return Find(name).calls; }

  /// Sets the function that is called with the name of each operation that checks in; null for
  /// none.
  void Listen(std::function<void(const std::string& name)> newListener) {
    listener = std::move(newListener);
  }

  /// Counts the call. Returns kSuccess if the operation can do its work. Otherwise returns the code
  /// of its fault or throws its exception.
  ResultCode CheckIn(Operation& operation);
  template <OperationName kName>
  ResultCode CheckIn() {
    static_cast<void>(kIsListed<kName>);
    return CheckIn(Find(kName.text));
  }

 private:
  static std::vector<const char*>& ListedNames();
  /// Its initialisation, which precedes main, adds the name to ListedNames.
  template <OperationName kName>
  inline static const bool kIsListed = (ListedNames().push_back(kName.text), true);

  Operation& Find(std::string_view name);

  std::map<std::string, Operation, std::less<>> operations;
  size_t injectedFaults = 0;
  std::function<void(const std::string& name)> listener;
};

}  // namespace standin
