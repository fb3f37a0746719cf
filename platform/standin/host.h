#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/standin/host_objects.h"
#include "platform/standin/operation_book.h"
#include "platform/standin/resources.h"
#include "platform/standin/string_lists.h"
#include "platform/standin/suite_book.h"
#include "platform/standin/user_interface.h"
#include "platform/suites/host_suites.h"

namespace standin {

class SheetService;

/// The host application as a plug-in sees it: its suites and what stands behind them. The suites'
/// functions find their host through Current, so a process has one host at a time. What the host
/// shows goes to `screen`, which must outlive it. Main thread only.
class Host {
 public:
  /// Throws std::logic_error when there is a host already.
  explicit Host(UserInterface& screen,
                const ResourceFolders& resources = ResourceFolders::OfProgram());
  ~Host();

  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  /// Throws std::logic_error when there is none.
  static Host& Current();

  /// The table through which plug-ins acquire all others. Its functions, and those of the others,
  /// work on the current host.
  QPBasicSuite* BasicSuite();

  /// Makes a plug-in known; Module does this for what it loads.
  PluginRef AddPlugin(std::string fileName);
  /// Withdraws what the plug-in told the host about itself: its name, notifiers and suites.
  void ForgetRegistrations(PluginRef plugin);
  /// Withdraws its registrations and its reference. What it still holds stays in Leftovers.
  void RemovePlugin(PluginRef plugin);
  /// Says whether the plug-in's code is in memory; its suites are handed out only then.
  void SetAway(PluginRef plugin, bool isAway);
  /// Whether access handles or users of its suites keep the plug-in in memory.
  bool IsInUse(PluginRef plugin) const;
  /// The owner of the host's own texts.
  ModuleRef HostModule() const { return hostModule; }

  /// Where tests say what to refuse, and see what was called.
  OperationBook& Operations() { return operations; }
  SuiteBook& Suites() { return suites; }
  HostObjects& Objects() { return objects; }
  StringLists& Lists() { return lists; }
  SheetService& Sheets() { return *sheets; }
  UserInterface& Interface() { return userInterface; }

  /// What was wrong with resources since they were last forgotten, each reason once and in the
  /// order of their discovery.
  const std::vector<std::string>& ResourceProblems() const { return resourceProblems; }
  void NoteResourceProblem(const std::string& reason);
  void ForgetResourceProblems() { resourceProblems.clear(); }

  /// What plug-ins took and have not given back, and the ledger's faults, a line each; empty when
  /// all is clean. Blocks and faults count from this host's beginning.
  std::vector<std::string> Leftovers() const;

 private:
  /// Declares all operations and adds the host's own suites.
  void AddSuites();

  UserInterface& userInterface;
  OperationBook operations;
  SuiteBook suites;
  HostObjects objects;
  StringLists lists;
  std::vector<std::string> resourceProblems;
  std::unique_ptr<SheetService> sheets;
  ModuleRef hostModule;
  uint64_t ledgerMark;
};

}  // namespace standin
