#pragma once

#include <cstdint>

#include "platform/suites/host_suites.h"

/// The host's basic suite, refreshed from every message; null before the first one.
extern QPBasicSuite* basicSuite;

/// The module-wide pointer to one of the host's suites: not null exactly while the module holds it.
template <class Table>
constinit inline const void* heldSuite = nullptr;

/// The table of a suite that the module holds, or null.
template <class Table>
const Table* Suite() {
  return static_cast<const Table*>(heldSuite<Table>);
}

/// One entry of a suite list. A list ends with an entry without a name.
struct SuiteImport {
  const char* name;
  int32_t version;
  const void** destination;  // the module-wide pointer; an entry without one is passed over
};

template <class Table>
constexpr SuiteImport ImportOf() {
  return {Table::kName, Table::kVersion, &heldSuite<Table>};
}

/// Acquires one suite into its pointer, which stays as it is when the host refuses or throws. A
/// host without a basic suite, or that gives no table, answers kCannot.
ResultCode AcquireSuite(const SuiteImport& import);

/// Releases one suite and clears its pointer, whatever the host answers; a release that throws
/// counts as failed.
ResultCode ReleaseSuite(const SuiteImport& import) noexcept;

/// Holds a suite for the length of one operation. A suite that the module holds anyway is used as
/// it is; otherwise it is acquired, and released again at the end of the scope.
template <class Table>
class ScopedSuite {
 public:
  ScopedSuite() : acquired(!Suite<Table>() && !Failed(AcquireSuite(ImportOf<Table>()))) {}
  ~ScopedSuite() {
    if (acquired) (void)ReleaseSuite(ImportOf<Table>());
  }
  ScopedSuite(const ScopedSuite&) = delete;
  ScopedSuite& operator=(const ScopedSuite&) = delete;

  explicit operator bool() const { return Suite<Table>() != nullptr; }
  const Table* operator->() const { return Suite<Table>(); }

 private:
  bool acquired;
};
