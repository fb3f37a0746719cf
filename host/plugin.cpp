#include "host/plugin.h"

#include <cstring>
#include <ctime>
#include <utility>

#include "host/bounded_string.h"
#include "host/error.h"
#include "host/failure_report.h"
#include "host/memory.h"

Plugin::Plugin(PluginRef reference) : pluginRef(reference) {
  BoundedCopy(name, sizeof(name), "Plugin", sizeof(name));
}

void* Plugin::operator new(size_t size) noexcept {
  return AllocateHostBlock(size);
}

void Plugin::operator delete(void* plugin) noexcept {
  FreeHostBlock(plugin);
}

void Plugin::ReportFailure(ResultCode code, const char*, const char*, PluginMessage*) noexcept {
  if (IsSilent(code)) return;
  const int64_t now = std::time(nullptr);
  const bool repeated = suppressRepeatedErrors && code == lastError;
  if (repeated && now < lastErrorTime + errorRepeatInterval) return;
  lastError = code;
  lastErrorTime = now;
  ShowFailure(pluginRef, code);
}

ResultCode Plugin::SetLocked(bool lock) {
  const auto* const access = Suite<QPAccessSuite>();
  if (lock) {
    if (++lockCount == 1)
      (void)Guarded([&] { return access->AcquirePlugin(pluginRef, &accessHandle); });
    return ResultCode::kSuccess;
  }
  if (lockCount > 0 && --lockCount == 0)
    (void)Guarded([&] { return access->ReleasePlugin(std::exchange(accessHandle, nullptr)); });
  return ResultCode::kSuccess;
}

int32_t Plugin::CopyName(char* buffer, size_t size) {
  BoundedCopy(buffer, size, name, size);
  return static_cast<int32_t>(std::strlen(name));
}

ResultCode Plugin::AcquireOptionalSuites() {
  if (suites) suites->AcquireOptional();
  return ResultCode::kSuccess;
}
