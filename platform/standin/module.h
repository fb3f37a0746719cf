#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "platform/standin/host.h"
#include "platform/suites/message_names.h"
#include "platform/suites/plugin_message.h"

namespace standin {

/// A module that cannot be loaded; `what` says which and why.
class LoadError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A module's code in memory, from construction to destruction.
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

/// A plug-in under the host: its code, and what the host keeps for it from message to message.
/// The host must outlive it. The destructor shuts down what still runs.
class Module {
 public:
  /// Loads the file and sends nothing yet. Throws LoadError.
  Module(Host& host, const std::filesystem::path& file);
  /// A plug-in whose code is linked into this program.
  Module(Host& host, PluginEntryPoint entry, const std::string& name);
  virtual ~Module();

  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  ResultCode StartUp();
  /// Loads the code first if it is away, since only the code can end what it began. Throws
  /// LoadError.
  ResultCode ShutDown();
  /// Sends the message and removes the code from memory. kPluginInUse when something needs it;
  /// a failure leaves the code where it is.
  ResultCode Unload();
  /// Loads the code again, from another file if one is given, and sends the message. Throws
  /// LoadError, with the plug-in still away. A code that is not away stays and is told only.
  ResultCode Reload();
  ResultCode Reload(const std::filesystem::path& otherFile);

  /// Any message; its further content, where it has some, is empty. kNotLoaded while the code is
  /// away.
  ResultCode Send(const char* caller, const char* selector);
  ResultCode Send(const MessageName& name) { return Send(name.caller, name.selector); }
  /// Says that something of the notifier's `type` happened.
  ResultCode Notify(const char* type, const char* selector = messages::kNotify.selector);
  ResultCode About() { return Send(messages::kAbout); }

  bool IsLoaded() const { return entry; }
  PluginRef Ref() const { return plugin; }
  /// What the plug-in keeps with the host; null when it does not run.
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
