#pragma once

#include <cstdint>
#include <string>

#include "platform/standin/handle_book.h"
#include "platform/suites/host_suites.h"

/// What stands behind the handles of the host's suites.

/// A plug-in, or the host's own module of texts.
struct OpaqueModule {
  std::string fileName;
  std::string name{};   // under which the plug-in asked to be shown; empty until it does
  bool isHost = false;  // the host's own module, which can be asked for texts only
  bool isAway = false;  // unloaded: its code is not in memory, its suites cannot be called
  bool isGone = false;  // removed; it is kept, so that no other one gets its reference
};

struct OpaqueAccess {
  PluginRef plugin;
};

struct OpaqueContext {
  PluginRef plugin;
};

struct OpaqueNotifier {
  PluginRef plugin;
  std::string name;
  std::string type;
};

struct OpaqueString {
  std::string text;  // UTF-8
};

namespace standin {

struct HostObjects {
  HandleBook<OpaqueModule> modules;
  HandleBook<OpaqueAccess> accesses;
  HandleBook<OpaqueContext> contexts;
  HandleBook<OpaqueNotifier> notifiers;
  HandleBook<OpaqueString> strings;

  bool IsModule(ModuleRef module) const { return modules.Holds(module) && !module->isGone; }
  bool IsPlugin(PluginRef plugin) const { return IsModule(plugin) && !plugin->isHost; }
};

}  // namespace standin
