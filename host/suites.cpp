#include "host/suites.h"

#include "host/error.h"

constinit QPBasicSuite* basicSuite = nullptr;

ResultCode AcquireSuite(const SuiteImport& import) {
  const ResultCode code = basicSuite->Acquire(import.name, import.version, import.destination);
  if (Failed(code)) *import.destination = nullptr;
  return code;
}

ResultCode ReleaseSuite(const SuiteImport& import) noexcept {
  *import.destination = nullptr;
  return Guarded([&] { return basicSuite->Release(import.name, import.version); });
}
