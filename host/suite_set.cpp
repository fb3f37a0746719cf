#include "host/suite_set.h"

#include <span>

#include "host/error.h"

constinit uint16_t suiteAcquireCount = 0;

namespace {

constexpr SuiteImport kFrameworkSuites[] = {
    ImportOf<QPAccessSuite>(),  ImportOf<QPPluginsSuite>(), ImportOf<VXNotifierSuite>(),
    ImportOf<VXContextSuite>(), ImportOf<KDMBasicSuite>(),  SuiteImport{},
};

constexpr const SuiteImport* kLists[] = {kFrameworkSuites, kPluginSuites};

const SuiteImport* EndOf(const SuiteImport* list) {
  while (list->name) ++list;
  return list;
}

ResultCode TryToAcquire(const SuiteImport& import) noexcept {
  return Guarded([&] { return AcquireSuite(import); });
}

ResultCode ReleaseIfHeld(const SuiteImport& import) noexcept {
  const bool held = import.destination && *import.destination;
  return held ? ReleaseSuite(import) : ResultCode::kSuccess;
}

}  // namespace

SuiteSet::SuiteSet() noexcept : error(AcquireRequired()) {
  CountLists();
  if (!Failed(error)) AcquireOptional();
}

SuiteSet::~SuiteSet() {
  (void)Release();
}

ResultCode SuiteSet::AcquireRequired() noexcept {
  if (suiteAcquireCount == 0) {
    for (const SuiteImport* list : kLists) {
      for (const SuiteImport* import = list; import->name; ++import) {
        if (!import->destination) continue;
        const ResultCode code = TryToAcquire(*import);
        if (Failed(code)) return code;
      }
    }
  }
  ++suiteAcquireCount;
  return ResultCode::kSuccess;
}

void SuiteSet::CountLists() {
  const SuiteImport* end = EndOf(kPluginSuites);
  requiredCount = static_cast<uint16_t>(end - kPluginSuites);
  if (end->version == kOptionalSuitesFollow) {
    const SuiteImport* optional = end + 1;
    optionalCount = static_cast<uint16_t>(EndOf(optional) - optional);
  }
}

void SuiteSet::AcquireOptional() noexcept {
  for (const SuiteImport& import : std::span(kPluginSuites + requiredCount + 1, optionalCount)) {
    if (!import.destination) return;
    if (!*import.destination && !Failed(TryToAcquire(import))) ++optionalAcquired;
  }
}

bool SuiteSet::HoldsSuites() const {
  for (const SuiteImport* list : kLists) {
    for (const SuiteImport* import = list; import->name; ++import)
      if (import->destination && !*import->destination) return false;
  }
  return true;
}

ResultCode SuiteSet::Release() noexcept {
  // The count is 0 if another set has released the suites; release those that it left held.
  if (suiteAcquireCount != 0 && --suiteAcquireCount != 0) return ResultCode::kSuccess;
  for (const SuiteImport* list : kLists) {
    for (const SuiteImport* import = list; import->name; ++import) {
      const ResultCode code = ReleaseIfHeld(*import);
      if (Failed(code)) return code;
    }
  }
  return ReleaseOptional();
}

ResultCode SuiteSet::ReleaseOptional() noexcept {
  const SuiteImport* import = kPluginSuites + requiredCount + 1;
  for (; optionalAcquired != 0 && import->name; ++import, --optionalAcquired) {
    const ResultCode code = ReleaseIfHeld(*import);
    if (Failed(code)) return code;
  }
  return ResultCode::kSuccess;
}
