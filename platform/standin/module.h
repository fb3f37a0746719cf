#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "platform/standin/host.h"
#include "platform/suites/message_names.h"
#include "platform/suites/plugin_message.h"

namespace standin {

/// A module that cannot be loaded; what() has the file and the reason.
class LoadError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Loads a module's code; the destructor unloads it.
class ModuleImage {
 public:
  /// Throws LoadError when the file cannot be loaded or has no entry point.
  explicit ModuleImage(const std::filesystem::path& file);
  ~ModuleImage();

  ModuleImage(const ModuleImage&) = delete;
  ModuleImage& operator=(const ModuleImage&) = delete;

  PluginEntryPoint Entry() const { return entry; }

 private:
  void* handle;
  PluginEntryPoint entry;
};

/// A plug-in in the host: its code, and what the host keeps for it between messages. The host must
/// outlive it. The destructor shuts down a running plug-in.
class Module {
 public:
  /// Loads the file and sends no message. Throws LoadError.
  Module(Host& host, const std::filesystem::path& file);
  /// A plug-in whose code is linked into this program.
  Module(Host& host, PluginEntryPoint entry, const std::string& name);
  virtual ~Module();

  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  ResultCode StartUp();
  /// Loads the code first if it is unloaded. Throws LoadError.
  ResultCode ShutDown();
  /// Sends the message and unloads the code, unless the plug-in returns a failure. kPluginInUse
  /// while it is in use.
  ResultCode Unload();
  /// Loads the code, from another file if one is given, unless it is loaded, and sends the message.
  /// Throws LoadError; the code then stays unloaded.
  ResultCode Reload();
  ResultCode Reload(const std::filesystem::path& otherFile);

  /// Sends a message whose further fields are null. kNotLoaded while the code is unloaded.
  ResultCode Send(const char* caller, const char* selector);
  ResultCode Send(const MessageName& name) { return Send(name.caller, name.selector); }
  /// Sends the message of a notifier of `type`.
  ResultCode Notify(const char* type, const char* selector = messages::kNotify.selector);
  ResultCode About() { return Send(messages::kAbout); }

  bool IsLoaded() const { return entry; }
  PluginRef Ref() const { return plugin; }
  /// The plug-in's globals; null when it does not run.
  void* Globals() const { return globals; }

 protected:
  /// Delivers a message of the host's; `message` is a NotifierMessage, whatever the caller.
  virtual ResultCode Deliver(PluginEntryPoint to, const char* caller, const char* selector,
                             PluginMessage& message) {
    return to(caller, selector, &message);
  }

 private:
  ResultCode Send(const char* caller, const char* selector, NotifierMessage& message);
  void Load(const std::filesystem::path& from);

  Host& host;
  std::filesystem::path file;
  std::unique_ptr<ModuleImage> image;
  PluginEntryPoint linkedEntry = nullptr;
  PluginEntryPoint entry = nullptr;
  PluginRef plugin;
  void* globals = nullptr;
};

}  // namespace standin
