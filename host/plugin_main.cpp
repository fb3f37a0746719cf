#include "host/plugin_main.h"

#include <cstring>

#include "host/error.h"
#include "host/failure_report.h"
#include "host/plugin.h"
#include "host/suite_access.h"
#include "platform/suites/message_names.h"

namespace {

/// Whether the message has this name. Its caller and selector may be null.
bool Is(const MessageName& message, const MessageName& known) {
  return message.caller && std::strcmp(message.caller, known.caller) == 0 && message.selector &&
         std::strcmp(message.selector, known.selector) == 0;
}

/// After a failure there is no new object, and an earlier object still holds its suites.
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
  // The object was unloaded; its code may now be at another address.
  if (!plugin->HoldsSuites()) plugin = RebindAfterReload(plugin);
  const ResultCode code = Guarded([&] { return plugin->OnShutdown(&message); });
  delete plugin;
  message.globals = nullptr;
  return code;
}

ResultCode Deliver(const MessageName& name, Plugin* plugin, PluginMessage& message) {
  const ResultCode code = Guarded([&] {
    if (Is(name, messages::kReload)) return RebindAfterReload(plugin)->OnReload(&message);
    if (!plugin->HoldsSuites()) return ResultCode::kSuccess;
    return plugin->HandleMessage(name.caller, name.selector, &message);
  });
  return code == ResultCode::kNotHandled ? ResultCode::kSuccess : code;
}

}  // namespace

ResultCode PluginMain(const char* caller, const char* selector, PluginMessage* message) {
  basicSuite = message->basicSuite;
  const MessageName name = {caller, selector};

  if (Is(name, messages::kStartup)) {
    const ResultCode code = StartUp(*message);
    if (Failed(code)) {
      ShowFailure(message->pluginRef, code);
      return code;
    }
  }
  auto* plugin = static_cast<Plugin*>(message->globals);
  if (!plugin) return ResultCode::kSuccess;
  if (Is(name, messages::kShutdown)) {
    const ResultCode code = ShutDown(plugin, *message);
    if (Failed(code)) ShowFailure(message->pluginRef, code);
    return code;
  }

  const ResultCode code = Deliver(name, plugin, *message);
  if (Failed(code)) plugin->ReportFailure(code, caller, selector, message);
  return code;
}
