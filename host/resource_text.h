#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/suites/plugin_message.h"

/// The size of a buffer for a text of a string list.
constexpr size_t kListTextSize = 256;

/// Reads entry `index` (from 1) of a module's string list, cut to the buffer. False, with an empty
/// text, when there is no such entry or it is empty. "KDM Basic Suite" must be held.
bool ReadListEntry(ModuleRef module, int32_t list, int32_t index, char* buffer, size_t size);
