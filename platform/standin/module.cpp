#include "platform/standin/module.h"

#include <dlfcn.h>

#include "platform/nrvcore/localizer.h"
#include "platform/standin/host_codes.h"

namespace standin {

using nrvcore::config::Message;

namespace {

std::string LastLoadFailure() {
  const char* const reason = dlerror();
  return reason ? reason : "unknown reason";
}

}  // namespace

ModuleImage::ModuleImage(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error))
    throw LoadError(Message("$$$/standin/Module/Absent=cannot load %1: there is no such file",
                            {file.string()}));
  // Opening a pipe, dlopen would wait for its writer.
  if (!std::filesystem::is_regular_file(file, error))
    throw LoadError(Message(
        "$$$/standin/Module/NotRegular=cannot load %1: it is not a regular file", {file.string()}));
  // dlopen searches the library path for a name without a folder.
  handle = dlopen(std::filesystem::absolute(file).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle)
    throw LoadError(Message("$$$/standin/Module/Refused=cannot load %1: %2",
                            {file.string(), LastLoadFailure()}));
  entry = reinterpret_cast<PluginEntryPoint>(dlsym(handle, kPluginEntryName));
  if (entry) return;
  dlclose(handle);
  throw LoadError(
      Message("$$$/standin/Module/NoPlugin=cannot use %1: it is not a plug-in, because it does not "
              "export %2",
              {file.string(), kPluginEntryName}));
}

ModuleImage::~ModuleImage() {
  dlclose(handle);
}

Module::Module(Host& host, const std::filesystem::path& file) : host(host), plugin(nullptr) {
  Load(file);
  plugin = host.AddPlugin(file.filename().string());
}

Module::Module(Host& host, PluginEntryPoint entry, const std::string& name)
    : host(host), linkedEntry(entry), entry(entry), plugin(host.AddPlugin(name)) {}

Module::~Module() {
  try {
    if (globals) static_cast<void>(ShutDown());
  } catch (...) {  // Leftovers lists the objects that the plug-in keeps
  }
  host.RemovePlugin(plugin);
}

void Module::Load(const std::filesystem::path& from) {
  if (!linkedEntry) image = std::make_unique<ModuleImage>(from);
  entry = linkedEntry ? linkedEntry : image->Entry();
  file = from;
}

ResultCode Module::StartUp() {
  const ResultCode code = Send(messages::kStartup);
  if (!globals) host.RemoveRegistrations(plugin);
  return code;
}

ResultCode Module::ShutDown() {
  if (!IsLoaded()) static_cast<void>(Reload());
  const ResultCode code = Send(messages::kShutdown);
  if (!globals) host.RemoveRegistrations(plugin);
  return code;
}

ResultCode Module::Unload() {
  if (!IsLoaded()) return kNotLoaded;
  if (host.IsInUse(plugin)) return kPluginInUse;
  const ResultCode code = Send(messages::kUnload);
  if (Failed(code)) return code;
  plugin->isUnloaded = true;
  entry = nullptr;
  image.reset();
  return code;
}

ResultCode Module::Reload() {
  return Reload(file);
}

ResultCode Module::Reload(const std::filesystem::path& otherFile) {
  if (!IsLoaded()) Load(otherFile);
  plugin->isUnloaded = false;
  return Send(messages::kReload);
}

ResultCode Module::Send(const char* caller, const char* selector) {
  NotifierMessage message{};  // the longest record, so that every read of the plug-in is valid
  return Send(caller, selector, message);
}

ResultCode Module::Notify(const char* type, const char* selector) {
  NotifierMessage message{};
  message.notifierType = type;
  return Send(messages::kNotifierCaller, selector, message);
}

ResultCode Module::Send(const char* caller, const char* selector, NotifierMessage& message) {
  if (!IsLoaded()) return kNotLoaded;
  message.pluginRef = plugin;
  message.globals = globals;
  message.basicSuite = host.BasicSuite();
  const ResultCode code = Deliver(entry, caller, selector, message);
  globals = message.globals;
  return code;
}

}  // namespace standin
