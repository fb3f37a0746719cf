#pragma once

#include <cstdint>

#include "host/suites.h"

/// The version of a list's end entry that says: optional suites follow, up to the next end entry.
constexpr int32_t kOptionalSuitesFollow = FourCharCode("OPTS");

/// The suites that the plug-in adds to the framework's own; each plug-in defines its own list.
extern const SuiteImport kPluginSuites[];

/// How many sets share the acquired suites.
extern uint16_t suiteAcquireCount;

/// Holds the host's suites: constructing a set acquires both lists, framework's first, or joins a
/// set that holds them already; destroying the last one releases them in the same order.
class SuiteSet {
 public:
  /// Error() tells the outcome. After a failure the suites before the refused one stay held and
  /// the set is not counted; whoever made it sets `suiteAcquireCount` to 1 before destroying it.
  SuiteSet() noexcept;
  ~SuiteSet();
  SuiteSet(const SuiteSet&) = delete;
  SuiteSet& operator=(const SuiteSet&) = delete;

  /// kSuccess, or the code of the acquisition that failed.
  ResultCode Error() const { return error; }

  /// Tries again to acquire the optional suites that are still missing.
  void AcquireOptional() noexcept;

 private:
  ResultCode AcquireRequired() noexcept;
  void CountLists();
  ResultCode Release() noexcept;
  ResultCode ReleaseOptional() noexcept;

  ResultCode error;
  uint16_t optionalCount = 0;     // optional entries in the plug-in's list
  uint16_t requiredCount = 0;     // entries in the plug-in's list before its end entry
  uint16_t optionalAcquired = 0;  // optional suites that this set holds
};

static_assert(sizeof(SuiteSet) == 12);
