#include "host/suite_access.h"

#include "host/error.h"

constinit QPBasicSuite* basicSuite = nullptr;

ResultCode AcquireSuite(const SuiteImport& import) {
  if (!basicSuite) return ResultCode::kCannot;
  const void* table = nullptr;
  const ResultCode code = basicSuite->Acquire(import.name, import.version, &table);
  if (Failed(code)) return code;
  if (!table) {
    (void)ReleaseSuite(import);
    return ResultCode::kCannot;
  }
  *import.destination = table;
  return ResultCode::kSuccess;
}

ResultCode ReleaseSuite(const SuiteImport& import) noexcept {
  *import.destination = nullptr;
  if (!basicSuite) return ResultCode::kCannot;
  return Guarded([&] { return basicSuite->Release(import.name, import.version); });
}
