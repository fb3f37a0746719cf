#include "host/plugin_main.h"

#include <cstring>

#include "host/error.h"
#include "host/failure_report.h"
#include "host/plugin.h"
#include "host/suite_access.h"

namespace {

/// Caller and selector, by which the host names a message; either may be null.
struct MessageName {
  bool Is(const MessageName& known) const {
    return caller && std::strcmp(caller, known.caller) == 0 && selector &&
           std::strcmp(selector, known.selector) == 0;
  }

  const char* caller;
  const char* selector;
};

constexpr MessageName kStartup = {"QP Interface", "Startup"};
constexpr MessageName kShutdown = {"QP Interface", "Shutdown"};
constexpr MessageName kReload = {"QP Access", "Reload"};

/// Answers an error with no object left behind, and with the suites of an earlier one still held.
ResultCode StartUp(PluginMessage& message) {
  const uint16_t earlierSets = suiteAcquireCount;
  Plugin* plugin = CreatePlugin(message.pluginRef);
  if (!plugin) return ResultCode::kOutOfMemory;
  message.globals = plugin;
  const ResultCode code = Guarded([&] { return plugin->OnStartup(&message); });
  if (Failed(code)) {
    plugin->AbandonStartup(earlierSets);
    delete plugin;
    message.globals = nullptr;
  }
  return code;
}

ResultCode ShutDown(Plugin* plugin, PluginMessage& message) {
  // An object without suites was unloaded, and its code may have come back elsewhere.
  if (!plugin->HoldsSuites()) plugin = RebindAfterReload(plugin);
  const ResultCode code = Guarded([&] { return plugin->OnShutdown(&message); });
  delete plugin;
  message.globals = nullptr;
  return code;
}

ResultCode Deliver(const MessageName& name, Plugin* plugin, PluginMessage& message) {
  const ResultCode code = Guarded([&] {
    if (name.Is(kReload)) return RebindAfterReload(plugin)->OnReload(&message);
    if (!plugin->HoldsSuites()) return ResultCode::kSuccess;
    return plugin->HandleMessage(name.caller, name.selector, &message);
  });
  return code == ResultCode::kNotHandled ? ResultCode::kSuccess : code;
}

}  // namespace

ResultCode PluginMain(const char* caller, const char* selector, PluginMessage* message) {
  basicSuite = message->basicSuite;
  const MessageName name = {caller, selector};

  if (name.Is(kStartup)) {
    const ResultCode code = StartUp(*message);
    if (Failed(code)) {
      ShowFailure(message->pluginRef, code);
      return code;
    }
  }
  auto* plugin = static_cast<Plugin*>(message->globals);
  if (!plugin) return ResultCode::kSuccess;
  if (name.Is(kShutdown)) {
    const ResultCode code = ShutDown(plugin, *message);
    if (Failed(code)) ShowFailure(message->pluginRef, code);
    return code;
  }

  const ResultCode code = Deliver(name, plugin, *message);
  if (Failed(code)) plugin->ReportFailure(code, caller, selector, message);
  return code;
}
