#pragma once

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

/// Every operation of the host checks in here under its name before it does anything: here it is
/// counted and, when a test wants so, turned down. Names are "<suite>/<operation>", for example
/// "QP Plug-ins Suite/SetPluginName", and "acquire/<suite>" and "release/<suite>".
class OperationBook {
 public:
  struct Disturbance {
    size_t callsFromNow = 1;  // 1 is the next call
    ResultCode code = ResultCode::kSuccess;
    std::exception_ptr exception;  // thrown instead of answering `code`
  };

  struct Operation {
    std::string name;
    size_t calls = 0;
    std::optional<Disturbance> disturbance;
  };

  /// Makes a name known and returns its operation, which stays where it is.
  Operation& Declare(const std::string& name);
  /// All names, sorted.
  std::vector<std::string> Names() const;

  /// The named operation answers `code` without doing its work. An operation that answers no code
  /// gives null or no number, or does nothing. Throws std::invalid_argument for an unknown name.
  void Refuse(std::string_view name, ResultCode code, size_t callsFromNow = 1);
  /// The named operation throws without doing its work.
  void Throw(std::string_view name, std::exception_ptr exception, size_t callsFromNow = 1);
  void DisturbNothing();
  /// Calls that were refused or ended by an exception.
  size_t Disturbed() const { return disturbed; }

  /// How often the operation was called, refused calls included.
  size_t Calls(std::string_view name) const;

  /// Told the name of each operation that is called from here on; null ends it.
  void Listen(std::function<void(const std::string& name)> newListener) {
    listener = std::move(newListener);
  }

  /// The operation's code of refusal, or kSuccess when it shall do its work.
  ResultCode CheckIn(Operation& operation);
  ResultCode CheckIn(std::string_view name) { return CheckIn(Find(name)); }

 private:
  Operation& Find(std::string_view name);
  const Operation& Find(std::string_view name) const;

  std::map<std::string, Operation, std::less<>> operations;
  size_t disturbed = 0;
  std::function<void(const std::string& name)> listener;
};

}  // namespace standin
