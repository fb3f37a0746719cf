#pragma once

#include <cstdint>

#include "platform/suites/host_suites.h"

/// Access to the host's suites by table type: Suite<KDMBasicSuite>()->ShowAboutBox(...). A suite is
/// held between its acquisition and its release; the plug-in's SuiteSet holds most of them, and a
/// ScopedSuite holds one for a single operation. Main thread only.

/// The host's basic suite. PluginMain sets it with every message; null before the first one.
extern QPBasicSuite* basicSuite;

/// The module-wide pointer to a suite's table: non-null exactly while the module holds the suite.
template <class Table>
constinit inline const void* heldSuite = nullptr;

/// The table of a suite, or null if the module does not hold it.
template <class Table>
const Table* Suite() {
  return static_cast<const Table*>(heldSuite<Table>);
}

/// One entry of a suite list. A list ends with an entry without a name.
struct SuiteImport {
  const char* name;
  int32_t version;
  const void** destination;  // the module-wide pointer; an entry with null is skipped
};

template <class Table>
constexpr SuiteImport ImportOf() {
  return {Table::kName, Table::kVersion, &heldSuite<Table>};
}

/// Acquires a suite and sets its pointer. Returns the host's code, or kCannot if there is no basic
/// suite or the host provides no table. Throws what the host throws.
ResultCode AcquireSuite(const SuiteImport& import);

/// Clears the pointer of a suite and releases the suite. Returns the host's code, the code for an
/// exception of the host, or kCannot if there is no basic suite.
ResultCode ReleaseSuite(const SuiteImport& import) noexcept;

/// Holds a suite until the end of the scope. If the module does not hold the suite already, the
/// constructor acquires it, or throws what the host throws, and the destructor releases it.
/// Converts to false if the suite cannot be acquired.
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
