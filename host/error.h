#pragma once

#include <exception>

#include "platform/suites/result_code.h"

namespace vx {

/// Carries a result code from a failed operation of the host to PluginMain or HandleMessage, which
/// return it. RunMosaicDialog returns kCannot instead. It never leaves the module.
class Error : public std::exception {
 public:
  explicit Error(ResultCode code) noexcept : code(code) {}

  ResultCode Code() const noexcept { return code; }

 private:
  ResultCode code;
};

}  // namespace vx

/// The result code for the exception being handled: the code of a vx::Error, kOutOfMemory for
/// std::bad_alloc, kCannot for any other. Call it only inside a catch clause.
ResultCode CodeOfCurrentException() noexcept;

/// Runs an operation and returns its code, or the code for the exception that it throws.
template <class Operation>
ResultCode Guarded(Operation operation) noexcept {
  try {
    return operation();
  } catch (...) {
    return CodeOfCurrentException();
  }
}
