#include "platform/standin/suite_registry.h"

#include <algorithm>
#include <stdexcept>

#include "platform/standin/host_codes.h"

namespace standin {

SuiteHandle SuiteRegistry::Add(std::string_view name, int32_t version, const void* functions,
                               PluginRef plugin, int32_t internalVersion) {
  if (FindSuite(name, version)) return nullptr;
  OpaqueSuite suite;
  suite.name = name;
  suite.version = version;
  suite.functions = functions;
  suite.plugin = plugin;
  suite.internalVersion = internalVersion;
  suite.acquire = &operations.Declare("acquire/" + suite.name);
  suite.release = &operations.Declare("release/" + suite.name);
  return suites.Add(std::move(suite));
}

void SuiteRegistry::RemoveSuitesOf(PluginRef plugin) {
  suites.RemoveIf([plugin](const OpaqueSuite& suite) { return suite.plugin == plugin; });
}

OpaqueSuite* SuiteRegistry::FindSuite(std::string_view name, int32_t version) const {
  for (const auto& suite : suites.Objects())
    if (suite->version == version && suite->name == name) return suite.get();
  return nullptr;
}

bool SuiteRegistry::HasOtherVersion(std::string_view name, int32_t version) const {
  return std::any_of(suites.Objects().begin(), suites.Objects().end(), [&](const auto& suite) {
    return suite->name == name && suite->version != version;
  });
}

ResultCode SuiteRegistry::Acquire(const char* name, int32_t version, const void** functions) {
  if (!name || !functions) return kBadArgument;
  OpaqueSuite* const suite = FindSuite(name, version);
  if (!suite) return HasOtherVersion(name, version) ? kSuiteVersion : kSuiteNotFound;
  if (const ResultCode code = operations.CheckIn(*suite->acquire); Failed(code)) return code;
  if (suite->isAbsent) return kSuiteNotFound;
  if (suite->plugin && suite->plugin->isUnloaded) return kNotLoaded;
  ++suite->users;
  *functions = suite->functions;
  return ResultCode::kSuccess;
}

ResultCode SuiteRegistry::Release(const char* name, int32_t version) {
  if (!name) return kBadArgument;
  OpaqueSuite* const suite = FindSuite(name, version);
  if (!suite) return HasOtherVersion(name, version) ? kSuiteVersion : kSuiteNotFound;
  if (const ResultCode code = operations.CheckIn(*suite->release); Failed(code)) return code;
  if (suite->users == 0) return kSuiteNotHeld;
  --suite->users;
  return ResultCode::kSuccess;
}

const void* SuiteRegistry::Find(std::string_view name, int32_t version) const {
  const OpaqueSuite* const suite = FindSuite(name, version);
  return suite ? suite->functions : nullptr;
}

void SuiteRegistry::SetAbsent(std::string_view name, bool isAbsent) {
  bool isKnown = false;
  for (const auto& suite : suites.Objects()) {
    if (suite->name != name) continue;
    suite->isAbsent = isAbsent;
    isKnown = true;
  }
  if (!isKnown) throw std::invalid_argument("the host has no suite \"" + std::string(name) + "\"");
}

size_t SuiteRegistry::Users(std::string_view name) const {
  size_t users = 0;
  for (const auto& suite : suites.Objects())
    if (suite->name == name) users += suite->users;
  return users;
}

bool SuiteRegistry::IsInUse(PluginRef plugin) const {
  return std::any_of(suites.Objects().begin(), suites.Objects().end(), [plugin](const auto& suite) {
    return suite->plugin == plugin && suite->users != 0;
  });
}

}  // namespace standin
