#pragma once

#include <exception>

#include "platform/suites/result_code.h"

namespace vx {

/// Carries a result code through the module until one of its edges answers the host with it.
class Error : public std::exception {
 public:
  explicit Error(ResultCode code) noexcept : code(code) {}

  ResultCode Code() const noexcept { return code; }

 private:
  ResultCode code;
};

}  // namespace vx

/// The code that stands for the exception being handled: its own for a vx::Error, kOutOfMemory
/// for std::bad_alloc, kCannot for anything else. To be called inside a catch clause only.
ResultCode CodeOfCurrentException() noexcept;

/// Runs an operation that answers with a code; whatever it throws becomes a code too.
template <class Operation>
ResultCode Guarded(Operation operation) noexcept {
  try {
    return operation();
  } catch (...) {
    return CodeOfCurrentException();
  }
}
