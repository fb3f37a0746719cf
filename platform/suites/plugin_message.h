#pragma once

#include <cstddef>

#include "platform/suites/result_code.h"

struct QPBasicSuite;

/// The host's opaque reference to a module: a plug-in, or the host's own module of texts. It is
/// valid from the first message to the last.
using ModuleRef = struct OpaqueModule*;

/// The host's reference to the plug-in that receives a message.
using PluginRef = ModuleRef;

/// The record that comes with every message. The host owns it and may use another one for each
/// message. These fields are common to all messages; more follow, depending on the message.
struct PluginMessage {
  void* reserved0;           // not read
  PluginRef pluginRef;       // the plug-in passes it in its calls of the host
  void* globals;             // the module's; null at first, then kept by the host between messages
  QPBasicSuite* basicSuite;  // acquires all other suites; valid until the next message, because the
                             // dialog uses it between messages
};

/// The record of messages from the caller "VX Notifier".
struct NotifierMessage : PluginMessage {
  void* reserved32;          // not read
  const char* notifierType;  // the type of the notifier that fired, NUL-terminated ASCII; or null
};

/// The one function through which a host talks to a plug-in module, exported under
/// kPluginEntryName. Sent on the host's main thread, one message at a time. `caller` and `selector`
/// name the message (message_names.h); either may be null, `message` may not. Returns 0 for success
/// and for messages that the module does not handle, otherwise a code. Before it returns a code it
/// shows the user an alert, unless the code is silent, has no text, or the host refuses a suite
/// that an alert needs. The last code shown is not shown again within five seconds, except by a
/// start-up or shut-down. No exception leaves it.
using PluginEntryPoint = ResultCode (*)(const char* caller, const char* selector,
                                        PluginMessage* message);
constexpr const char* kPluginEntryName = "PluginMain";

static_assert(offsetof(PluginMessage, pluginRef) == 8, "");
static_assert(offsetof(PluginMessage, globals) == 16, "");
static_assert(offsetof(PluginMessage, basicSuite) == 24, "");
static_assert(sizeof(PluginMessage) == 32, "");
static_assert(sizeof(NotifierMessage) == 48, "");  // `notifierType` ends it, at 40
