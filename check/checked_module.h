#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "check/hosted_module.h"

namespace check {

using enum ResultCode;

/// What a host answers that refuses.
inline constexpr ResultCode kRefused{12};

/// The operations of the host that are called, in their order.
using Calls = std::vector<std::string>;

/// The module's own where its file lies in a folder with them, otherwise those of this program.
standin::ResourceFolders Resources();

/// The module that is checked, under a host of its own and not yet started.
class CheckedModule : public HostedModule {
 public:
  explicit CheckedModule(const standin::ResourceFolders& resources = Resources());

  Calls CallsDuring(const std::function<void()>& act);
  /// Expects success of what is sent, and these calls meanwhile.
  void ExpectCalls(const char* what, const Calls& expected,
                   const std::function<ResultCode()>& send);
  /// The dialog over a record of its own, for whoever is presented to.
  ResultCode RunSampleDialog();
  /// A message with a record of the caller's own, sent to the module's code itself.
  ResultCode SendPlain(const char* caller, const char* selector, PluginMessage& message);
  /// A record for such a message, with nothing kept in it.
  PluginMessage PlainMessage();

  void ExpectNothingLeft() const;

 private:
  Calls* calls = nullptr;
};

/// The same, started until the end of the scope; it may already be shut down then, and nothing may
/// be left.
struct RunningModule : CheckedModule {
  explicit RunningModule(const standin::ResourceFolders& resources = Resources());
  ~RunningModule();
};

/// In the order in which the module takes and gives back its suites.
inline constexpr const char* kSuitesOfModule[] = {
    "QP Access Suite",  "QP Plug-ins Suite",  "VX Notifier Suite",
    "VX Context Suite", "KDM Basic Suite",    "QP Blocks Suite",
    "QP Suites Suite",  "VX Real Math Suite", "VX Unicode String Suite",
};

Calls Joined(Calls calls, const Calls& more);

inline const Calls kCallsForNotifier = {"VX Context Suite/PushAppContext",
                                        "VX Context Suite/PopAppContext"};
inline const Calls kCallsForAbout = {"KDM Basic Suite/GetListString",
                                     "KDM Basic Suite/GetListString",
                                     "KDM Basic Suite/ShowAboutBox"};

/// "acquire/" or "release/" with each of the first suites of the module.
Calls WithSuites(const std::string& verb, size_t count = std::size(kSuitesOfModule));

}  // namespace check
