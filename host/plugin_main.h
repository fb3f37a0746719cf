#pragma once

#include "platform/suites/plugin_message.h"

/// The module's one exported function, through which the host sends every message. PluginEntryPoint
/// describes its contract. It creates the plug-in object at the start-up, keeps it in the message's
/// `globals`, passes it the other messages and destroys it at the shut-down.
extern "C" __attribute__((visibility("default"))) ResultCode PluginMain(const char* caller,
                                                                        const char* selector,
                                                                        PluginMessage* message);
