#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "check/check.h"
#include "check/findings.h"
#include "check/hosted_module.h"

namespace check {

using enum ResultCode;

/// What a host answers that refuses.
inline constexpr ResultCode kRefused{12};

/// The operations of the host that are called, in their order.
using Calls = std::vector<std::string>;

inline Calls Joined(Calls calls, const Calls& more) {
  calls.insert(calls.end(), more.begin(), more.end());
  return calls;
}

inline const Calls kCallsForNotifier = {"VX Context Suite/PushAppContext",
                                        "VX Context Suite/PopAppContext"};
inline const Calls kCallsForAbout = {"KDM Basic Suite/GetListString",
                                     "KDM Basic Suite/GetListString",
                                     "KDM Basic Suite/ShowAboutBox"};

/// In the order in which the module takes and gives back its suites.
inline constexpr const char* kSuitesOfModule[] = {
    "QP Access Suite",  "QP Plug-ins Suite",  "VX Notifier Suite",
    "VX Context Suite", "KDM Basic Suite",    "QP Blocks Suite",
    "QP Suites Suite",  "VX Real Math Suite", "VX Unicode String Suite",
};

/// "acquire/" or "release/" with each of the first suites of the module.
inline Calls WithSuites(const std::string& verb, size_t count = std::size(kSuitesOfModule)) {
  Calls operations;
  for (size_t i = 0; i < count; ++i) operations.push_back(verb + kSuitesOfModule[i]);
  return operations;
}

/// The module's own where its file lies in a folder with them, otherwise those of this program.
inline standin::ResourceFolders Resources() {
  auto folders = standin::ResourceFolders::OfProgram();
  const auto beside = std::filesystem::absolute(settings.module).parent_path();
  if (std::filesystem::is_directory(beside / "layouts")) folders.plugin = beside;
  return folders;
}

/// The module that is checked, under a host of its own and not yet started.
class CheckedModule : public HostedModule {
 public:
  explicit CheckedModule(const standin::ResourceFolders& resources = Resources())
      : HostedModule(settings.module, resources) {
    host.Operations().Listen([this](const std::string& operation) {
      if (calls) calls->push_back(operation);
      if (settings.isVerbose) std::printf("  %s\n", operation.c_str());
    });
  }

  Calls CallsDuring(const std::function<void()>& act) {
    Calls during;
    calls = &during;
    act();
    calls = nullptr;
    return during;
  }

  /// Expects success of what is sent, and these calls meanwhile.
  void ExpectCalls(std::string_view what, const Calls& expected,
                   const std::function<ResultCode()>& send) {
    const Trying trying(what);
    Expect("calls of the host", CallsDuring([&] { Expect("the answer", send(), kSuccess); }),
           expected);
  }

  /// The dialog over a record of its own, for whoever is presented to.
  ResultCode RunSampleDialog() {
    MosaicParameters record = SampleRecord();
    MosaicDialogState state{};
    return RunDialog(record, state);
  }

  /// A message with a record of the caller's own, sent to the module's code itself.
  ResultCode SendPlain(const char* caller, const char* selector, PluginMessage& message) {
    return standin::ModuleImage(settings.module).Entry()(caller, selector, &message);
  }
  /// A record for such a message, with nothing kept in it.
  PluginMessage PlainMessage() { return {nullptr, module.Ref(), nullptr, host.BasicSuite()}; }

  void ExpectNothingLeft() const { Expect("what is left", host.Leftovers(), Calls()); }

 private:
  Calls* calls = nullptr;
};

/// The same, started until the end of the scope; it may already be shut down then, and nothing may
/// be left.
struct RunningModule : CheckedModule {
  explicit RunningModule(const standin::ResourceFolders& resources = Resources())
      : CheckedModule(resources) {
    Expect("the start-up", module.StartUp(), kSuccess);
  }
  ~RunningModule() {
    Expect("the shut-down", module.ShutDown(), kSuccess);
    ExpectNothingLeft();
  }
};

}  // namespace check
