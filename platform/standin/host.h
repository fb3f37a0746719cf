#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/standin/host_objects.h"
#include "platform/standin/operation_registry.h"
#include "platform/standin/resources.h"
#include "platform/standin/suite_registry.h"
#include "platform/standin/user_interface.h"
#include "platform/suites/host_suites.h"

namespace standin {

class SheetService;

/// The host application as a plug-in sees it: the suites and the objects behind their handles. The
/// functions of the suites use the current host, so a process has one host at a time. Main thread
/// only.
class Host {
 public:
  /// Shows alerts and about boxes through `interface`, which must outlive the host. Throws
  /// std::logic_error if a host exists already.
  explicit Host(UserInterface& interface,
                const ResourceFolders& resources = ResourceFolders::OfProgram());
  ~Host();

  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  /// Throws std::logic_error if no host exists.
  static Host& Current();

  /// The table through which plug-ins acquire all others.
  QPBasicSuite* BasicSuite();

  /// Adds a plug-in. For Module.
  PluginRef AddPlugin(std::string fileName);
  /// Removes the plug-in's name, notifiers and suites.
  void RemoveRegistrations(PluginRef plugin);
  /// Removes the plug-in's registrations and invalidates its reference. Leftovers continues to list
  /// what it holds.
  void RemovePlugin(PluginRef plugin);
  /// Whether an access handle or one of its suites is held, so that the plug-in must stay loaded.
  bool IsInUse(PluginRef plugin) const;
  /// The module that owns the host's string lists.
  ModuleRef HostModule() const { return hostModule; }

  OperationRegistry& Operations() { return operations; }
  SuiteRegistry& Suites() { return suites; }
  HostObjects& Objects() { return objects; }
  StringLists& Lists() { return lists; }
  SheetService& Sheets() { return *sheets; }
  UserInterface& Interface() { return userInterface; }

  /// The errors in resources since the last ClearResourceProblems, each once, the oldest first.
  const std::vector<std::string>& ResourceProblems() const { return resourceProblems; }
  void AddResourceProblem(const std::string& reason);
  void ClearResourceProblems() { resourceProblems.clear(); }

  /// A line for each object that plug-ins have acquired and not released, and for each fault of the
  /// ledger. Covers blocks and faults since this host's construction.
  std::vector<std::string> Leftovers() const;

 private:
  /// Declares all operations and registers the host's own suites.
  void AddSuites();

  UserInterface& userInterface;
  OperationRegistry operations;
  SuiteRegistry suites;
  HostObjects objects;
  StringLists lists;
  std::vector<std::string> resourceProblems;
  std::unique_ptr<SheetService> sheets;
  ModuleRef hostModule;
  uint64_t ledgerMark;
};

}  // namespace standin
