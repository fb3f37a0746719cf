#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "platform/standin/host.h"
#include "platform/suites/message_names.h"
#include "platform/suites/plugin_message.h"

namespace standin {

/// A module that cannot be loaded. what() contains the file and the reason.
class LoadError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A module's code in memory. The destructor unloads it.
class ModuleImage {
 public:
  /// Throws LoadError if the file cannot be loaded or has no entry point.
  explicit ModuleImage(const std::filesystem::path& file);
  ~ModuleImage();

  ModuleImage(const ModuleImage&) = delete;
  ModuleImage& operator=(const ModuleImage&) = delete;

  PluginEntryPoint Entry() const { return entry; }

 private:
  void* handle;
  PluginEntryPoint entry;
};

/// A plug-in: its code, and the values that the host keeps for it between messages. The host must
/// outlive it. The destructor shuts down a running plug-in. Main thread only.
class Module {
 public:
  /// Loads the file without sending a message. Throws LoadError.
  Module(Host& host, const std::filesystem::path& file);
  /// A plug-in whose code is linked into this program.
  Module(Host& host, PluginEntryPoint entry, const std::string& name);
  virtual ~Module();

  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  ResultCode StartUp();
  /// If the code is unloaded, reloads it first, which can throw LoadError.
  ResultCode ShutDown();
  /// Sends the message and unloads the code. Returns the plug-in's code, kPluginInUse or kNotLoaded
  /// if the code stays as it was.
  ResultCode Unload();
  /// Loads unloaded code, from the same or from another file, and sends the message. Throws
  /// LoadError if the code cannot be loaded.
  ResultCode Reload();
  ResultCode Reload(const std::filesystem::path& otherFile);

  /// Sends a message whose other fields are null. Returns kNotLoaded while the code is unloaded.
  ResultCode Send(const char* caller, const char* selector);
  ResultCode Send(const MessageName& name) { return Send(name.caller, name.selector); }
  /// Sends the message of a notifier of `type`.
  ResultCode Notify(const char* type, const char* selector = messages::kNotify.selector);
  ResultCode About() { return Send(messages::kAbout); }

  bool IsLoaded() const { return entry; }
  PluginRef Ref() const { return plugin; }
  /// The plug-in's globals: null before its start-up and after its shut-down.
  void* Globals() const { return globals; }

 protected:
  /// Calls the entry point. `message` is part of a NotifierMessage for every caller.
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
