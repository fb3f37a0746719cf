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

/// The host application as a plug-in sees it: the suites, and the objects that they work on. The
/// suites' functions find the host through Current, so a process has one host at a time. Main
/// thread only.
class Host {
 public:
  /// Alerts and about boxes go to `screen`, which must outlive the host. Throws std::logic_error
  /// when there is a host already.
  explicit Host(UserInterface& screen,
                const ResourceFolders& resources = ResourceFolders::OfProgram());
  ~Host();

  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  /// Throws std::logic_error when there is none.
  static Host& Current();

  /// The table through which plug-ins acquire all others. The functions of all tables work on the
  /// current host.
  QPBasicSuite* BasicSuite();

  /// Adds a plug-in; Module calls this.
  PluginRef AddPlugin(std::string fileName);
  /// Removes what the plug-in has registered: its name, notifiers and suites.
  void RemoveRegistrations(PluginRef plugin);
  /// Removes its registrations and invalidates its reference. What it still holds stays in
  /// Leftovers.
  void RemovePlugin(PluginRef plugin);
  /// While a plug-in's code is unloaded, its suites cannot be acquired.
  void SetUnloaded(PluginRef plugin, bool isUnloaded);
  /// Whether the plug-in must stay in memory: somebody holds an access handle or one of its suites.
  bool IsInUse(PluginRef plugin) const;
  /// The module that owns the host's string lists.
  ModuleRef HostModule() const { return hostModule; }

  /// For tests: counts calls and injects faults.
  OperationRegistry& Operations() { return operations; }
  SuiteRegistry& Suites() { return suites; }
  HostObjects& Objects() { return objects; }
  StringLists& Lists() { return lists; }
  SheetService& Sheets() { return *sheets; }
  UserInterface& Interface() { return userInterface; }

  /// What was wrong with resources since the last ForgetResourceProblems, each reason once, in the
  /// order of discovery.
  const std::vector<std::string>& ResourceProblems() const { return resourceProblems; }
  void NoteResourceProblem(const std::string& reason);
  void ForgetResourceProblems() { resourceProblems.clear(); }

  /// A line for each thing that plug-ins have acquired and not released, and for each fault of the
  /// ledger. Blocks and faults count from this host's construction.
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
