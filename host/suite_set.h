#pragma once

#include <cstdint>

#include "host/suite_access.h"

/// An end entry with this version is followed by optional suites, up to the next end entry.
constexpr int32_t kOptionalSuitesFollow = FourCharCode("OPTS");

/// The suites that the plug-in adds to the framework's own; defined in the plug-in's file, as
/// mosaic/tesserae_ui.cpp is.
extern const SuiteImport kPluginSuites[];

/// The number of sets that share the acquired suites; a start-up or reload sets it to 1.
extern uint16_t suiteAcquireCount;

/// Holds the host's suites. Constructing a set acquires the framework's list and then the
/// plug-in's, or only adds 1 to `suiteAcquireCount` when another set holds the suites. Destroying a
/// set subtracts 1 and, at 0, releases the suites in the order in which they were acquired.
class SuiteSet {
 public:
  /// Error() tells the outcome. After a failure the suites before the refused one stay held, and
  /// `suiteAcquireCount` stays 0. The owner must set it to 1 before it destroys the set: only a
  /// count that falls from 1 to 0 releases those suites.
  SuiteSet() noexcept;
  ~SuiteSet();
  SuiteSet(const SuiteSet&) = delete;
  SuiteSet& operator=(const SuiteSet&) = delete;

  /// kSuccess, or the code of the acquisition that failed.
  ResultCode Error() const { return error; }

  /// Whether every required suite is held. A set loses its suites when another one that shares
  /// them is destroyed and `suiteAcquireCount` becomes 0.
  bool HoldsSuites() const;

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
