#include "host/plugin_main.h"

#include "host/error.h"
#include "host/failure_report.h"
#include "host/names.h"
#include "host/plugin_factory.h"
#include "host/suites.h"

namespace {

struct Name {
  const char* caller;
  const char* selector;
};

constexpr Name kStartup = {"QP Interface", "Startup"};
constexpr Name kShutdown = {"QP Interface", "Shutdown"};
constexpr Name kReload = {"QP Access", "Reload"};

bool operator==(const Name& message, const Name& known) {
  return IsNamed(message.caller, known.caller) && IsNamed(message.selector, known.selector);
}

Plugin* PluginOf(const PluginMessage& message) {
  return static_cast<Plugin*>(message.globals);
}

void Destroy(PluginMessage& message) {
  delete PluginOf(message);
  message.globals = nullptr;
}

ResultCode StartUp(PluginMessage& message) {
  Plugin* plugin = CreatePlugin(message.pluginRef);
  if (!plugin) return ResultCode::kOutOfMemory;
  message.globals = plugin;
  const ResultCode code = Guarded([&] { return plugin->OnStartup(&message); });
  if (Failed(code)) Destroy(message);
  return code;
}

ResultCode ShutDown(PluginMessage& message) {
  const ResultCode code = Guarded([&] { return PluginOf(message)->OnShutdown(&message); });
  Destroy(message);
  return code;
}

ResultCode Deliver(const Name& name, PluginMessage& message) {
  const ResultCode code = Guarded([&] {
    if (name == kReload) {
      message.globals = RebindAfterReload(message.globals);
      return PluginOf(message)->OnReload(&message);
    }
    Plugin* plugin = PluginOf(message);
    if (!plugin->HoldsSuites()) return ResultCode::kSuccess;
    return plugin->HandleMessage(name.caller, name.selector, &message);
  });
  return code == ResultCode::kNotHandled ? ResultCode::kSuccess : code;
}

}  // namespace

ResultCode PluginMain(const char* caller, const char* selector, PluginMessage* message) {
  basicSuite = message->basicSuite;
  const Name name = {caller, selector};

  if (name == kStartup) {
    const ResultCode code = StartUp(*message);
    if (Failed(code)) {
      ShowFailure(message->pluginRef, code);
      return code;
    }
  }
  if (!message->globals) return ResultCode::kSuccess;
  if (name == kShutdown) {
    const ResultCode code = ShutDown(*message);
    if (Failed(code)) ShowFailure(message->pluginRef, code);
    return code;
  }

  const ResultCode code = Deliver(name, *message);
  if (Failed(code)) PluginOf(*message)->ReportFailure(code, caller, selector, message);
  return code;
}
