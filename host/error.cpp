#include "host/error.h"

#include <new>

ResultCode CodeOfCurrentException() noexcept {
  try {
    throw;
  } catch (const vx::Error& error) {
    return error.Code();
  } catch (const std::bad_alloc&) {
    return ResultCode::kOutOfMemory;
  } catch (...) {
    return ResultCode::kCannot;
  }
}
