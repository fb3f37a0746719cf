#pragma once

#include <cstdint>

#include "host/suite_access.h"

/// The version of an end entry that is followed by optional suites, up to the next end entry.
constexpr int32_t kOptionalSuitesFollow = FourCharCode("OPTS");

/// The suites that the plug-in needs in addition to those of the framework. Each plug-in defines
/// this list.
extern const SuiteImport kPluginSuites[];

/// The number of sets that share the acquired suites. A start-up or reload sets it to 1.
extern uint16_t suiteAcquireCount;

/// Holds the host's suites; owned by the plug-in object. Constructing a set acquires the
/// framework's list and then the plug-in's, or only adds 1 to `suiteAcquireCount` when another set
/// holds the suites. Destroying a set subtracts 1 and, at 0, releases the suites in the order in
/// which they were acquired.
class SuiteSet {
 public:
  /// Error() returns the outcome. After a failure the suites acquired before it stay held and
  /// `suiteAcquireCount` stays 0. The owner sets it to 1 before it destroys the set, which then
  /// releases those suites.
  SuiteSet() noexcept;
  ~SuiteSet();
  SuiteSet(const SuiteSet&) = delete;
  SuiteSet& operator=(const SuiteSet&) = delete;

  /// kSuccess, or the code of the first acquisition that failed.
  ResultCode Error() const { return error; }

  /// Whether every required suite is held. A set loses its suites when another one that shares
  /// them is destroyed and `suiteAcquireCount` becomes 0.
  bool HoldsSuites() const;

  /// Acquires the optional suites that are still missing, and ignores failures.
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
