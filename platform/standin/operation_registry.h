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

/// The name of an operation as a template argument.
template <size_t kSize>
struct OperationName {
  consteval OperationName(const char (&name)[kSize]) { std::copy_n(name, kSize, text); }
  char text[kSize];
};

/// The host's operations by name. Each checks in before it does its work: the call is counted, and
/// a test can make it fail. Names are "<suite>/<operation>", for example
/// "QP Plug-ins Suite/SetPluginName", and "acquire/<suite>" and "release/<suite>". Main thread
/// only.
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
  /// Adds a name and returns its operation, whose address does not change.
  Operation& Declare(const std::string& name);
  /// All names, sorted.
  std::vector<std::string> Names() const;

  /// Makes the named operation return `code` without doing its work, once. An operation without a
  /// result code returns null or NaN, or does nothing. Replaces the operation's fault if it has
  /// one. Throws std::invalid_argument for an unknown name.
  void Refuse(std::string_view name, ResultCode code, size_t callsFromNow = 1);
  /// Makes it throw without doing its work, once.
  void Throw(std::string_view name, std::exception_ptr exception, size_t callsFromNow = 1);
  void ClearFaults();
  /// The number of calls that failed because of a fault.
  size_t InjectedFaults() const { return injectedFaults; }

  /// How often the operation was called, including calls that failed.
  size_t Calls(std::string_view name) { return Find(name).calls; }

  /// Sets the function that is called with the name of each operation as it checks in; null for
  /// none.
  void Listen(std::function<void(const std::string& name)> newListener) {
    listener = std::move(newListener);
  }

  /// Counts the call. Returns kSuccess when the operation is to do its work; otherwise the code of
  /// its fault, or throws its exception.
  ResultCode CheckIn(Operation& operation);
  template <OperationName kName>
  ResultCode CheckIn() {
    static_cast<void>(kIsListed<kName>);
    return CheckIn(Find(kName.text));
  }

 private:
  static std::vector<const char*>& ListedNames();
  /// Its initialisation, before main, lists the name, so that no list repeats the names.
  template <OperationName kName>
  inline static const bool kIsListed = (ListedNames().push_back(kName.text), true);

  Operation& Find(std::string_view name);

  std::map<std::string, Operation, std::less<>> operations;
  size_t injectedFaults = 0;
  std::function<void(const std::string& name)> listener;
};

}  // namespace standin
