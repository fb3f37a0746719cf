#pragma once

#include <cstddef>

#include "platform/suites/result_code.h"

struct QPBasicSuite;

/// The host's opaque reference to a module: a plug-in, or the host's own module with its texts.
/// Valid from the plug-in's first message to its last.
using ModuleRef = struct OpaqueModule*;

/// The host's reference to the plug-in that receives a message.
using PluginRef = ModuleRef;

/// The record of every message. The host owns it and may use a different one for each message.
/// These fields are common to all messages; some messages have more.
struct PluginMessage {
  void* reserved0;           // not read
  PluginRef pluginRef;       // the plug-in passes it to the host's operations
  void* globals;             // a value of the module, which the host stores between messages; null
                             // in the first message
  QPBasicSuite* basicSuite;  // gives access to all other suites; valid until the next message,
                             // because dialogs run between messages
};

/// The record of messages from the caller "VX Notifier".
struct NotifierMessage : PluginMessage {
  void* reserved32;          // not read
  const char* notifierType;  // the type of the notifier that fired, NUL-terminated ASCII; or null
};

/// The function through which a host sends messages to a plug-in module, which exports it as
/// kPluginEntryName. The host calls it on its main thread, one message at a time. `caller` and
/// `selector` are the message's name (message_names.h); each may be null. `message` is not null.
///
/// Returns 0 for success and for messages that the module does not handle, otherwise a code. Before
/// it returns a code it shows the user an alert, unless the code is silent or has no text, or the
/// host refuses a suite that the alert needs. The code that was shown last is not shown again
/// within five seconds, except after a start-up or shut-down. No exception leaves the function.
using PluginEntryPoint = ResultCode (*)(const char* caller, const char* selector,
                                        PluginMessage* message);
constexpr const char* kPluginEntryName = "PluginMain";

static_assert(offsetof(PluginMessage, pluginRef) == 8, "");
static_assert(offsetof(PluginMessage, globals) == 16, "");
static_assert(offsetof(PluginMessage, basicSuite) == 24, "");
static_assert(sizeof(PluginMessage) == 32, "");
static_assert(sizeof(NotifierMessage) == 48, "");  // `notifierType` ends it, at 40
