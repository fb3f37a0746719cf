#pragma once

#include "platform/suites/plugin_message.h"

/// The module's one exported function, a PluginEntryPoint.
extern "C" __attribute__((visibility("default"))) ResultCode PluginMain(const char* caller,
                                                                        const char* selector,
                                                                        PluginMessage* message);
