#pragma once

#include <cstdint>
#include <string>

#include "platform/standin/handle_registry.h"
#include "platform/suites/host_suites.h"

// The types behind the handles of the host's suites.

/// A plug-in, or the host's own module of texts.
struct OpaqueModule {
  std::string fileName;
  std::string name{};       // set by SetPluginName; empty before
  bool isHost = false;      // the host's own module, which has string lists but no code
  bool isUnloaded = false;  // its code is not in memory, so its suites cannot be called
  bool isRemoved = false;   // kept, so that its reference is not reused
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
  HandleRegistry<OpaqueModule> modules;
  HandleRegistry<OpaqueAccess> accesses;
  HandleRegistry<OpaqueContext> contexts;
  HandleRegistry<OpaqueNotifier> notifiers;
  HandleRegistry<OpaqueString> strings;

  bool IsModule(ModuleRef module) const { return modules.Holds(module) && !module->isRemoved; }
  bool IsPlugin(PluginRef plugin) const { return IsModule(plugin) && !plugin->isHost; }
};

}  // namespace standin
