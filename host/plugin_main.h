#pragma once

#include "platform/suites/plugin_message.h"
#include "platform/suites/result_code.h"

/// The module's one exported function: the host sends every message through it, on its main
/// thread, one at a time. `caller` and `selector` name the message and are compared byte for
/// byte. `message` must not be null, the others may. Answers 0 for success and for messages that
/// nobody handles, otherwise a code, which the user has been shown unless it is silent or was shown
/// just before. No exception leaves it.
extern "C" __attribute__((visibility("default"))) ResultCode PluginMain(const char* caller,
                                                                        const char* selector,
                                                                        PluginMessage* message);
