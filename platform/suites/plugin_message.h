#pragma once

#include <cstddef>

#include "platform/suites/result_code.h"

struct QPBasicSuite;

/// The host's opaque reference of a module: a plug-in, or the host's own text module. It stays
/// valid from the first message to the last, and plug-ins never look behind it.
using ModuleRef = struct OpaqueModule*;

/// The host's reference of the plug-in that a message is for.
using PluginRef = ModuleRef;

/// The record that comes with every message. The host owns it and may build it anew for each; only
/// the common part stands here, later fields depend on the message.
struct PluginMessage {
  void* reserved0;           // not read
  PluginRef pluginRef;       // handed back to the host in every call that concerns the plug-in
  void* globals;             // the module's: null at first, then kept by the host between messages
  QPBasicSuite* basicSuite;  // through which all others are acquired; stays good until the next
                             // message, since the dialog uses it too
};

/// What a message from the caller "VX Notifier" carries.
struct NotifierMessage : PluginMessage {
  void* reserved32;          // not read
  const char* notifierType;  // the type of the notifier that fired, NUL-terminated ASCII; or null
};

/// The one function through which a host talks to a plug-in module, exported under
/// kPluginEntryName. Sent on the host's main thread, one message at a time. `caller` and `selector`
/// name the message (message_names.h); either may be null, `message` may not. Answers 0 for success
/// and for messages that nobody handles, otherwise a code. Before it answers a code it shows the
/// user an alert, unless the code is silent, has no text, or the host refuses a suite that an alert
/// needs. The code that was shown last is not shown again within five seconds, except of a start-up
/// or shut-down. No exception leaves it.
using PluginEntryPoint = ResultCode (*)(const char* caller, const char* selector,
                                        PluginMessage* message);
constexpr const char* kPluginEntryName = "PluginMain";

static_assert(offsetof(PluginMessage, pluginRef) == 8, "");
static_assert(offsetof(PluginMessage, globals) == 16, "");
static_assert(offsetof(PluginMessage, basicSuite) == 24, "");
static_assert(sizeof(PluginMessage) == 32, "");
static_assert(sizeof(NotifierMessage) == 48, "");  // `notifierType` ends it, at 40
