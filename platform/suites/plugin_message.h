#pragma once

#include <cstddef>

struct QPBasicSuite;

/// The host's opaque reference of a module: a plug-in, or the host's own text module.
using ModuleRef = struct OpaqueModule*;

/// The host's reference of the plug-in that a message is for.
using PluginRef = ModuleRef;

/// The record that comes with every message. The host owns it; only the common part stands here,
/// later fields depend on the message.
struct PluginMessage {
  void* reserved0;
  PluginRef pluginRef;       // handed back to the host in every call that concerns the plug-in
  void* globals;             // kept by the host for the module from one message to the next
  QPBasicSuite* basicSuite;  // through which all other suites are acquired
};

/// What a message from the caller "VX Notifier" carries.
struct NotifierMessage : PluginMessage {
  void* reserved32;
  const char* notifierType;  // the type of the notifier that fired
};

static_assert(offsetof(PluginMessage, pluginRef) == 8);
static_assert(offsetof(PluginMessage, globals) == 16);
static_assert(offsetof(PluginMessage, basicSuite) == 24);
static_assert(sizeof(PluginMessage) == 32);
static_assert(sizeof(NotifierMessage) == 48);  // `notifierType` ends it, at 40
