#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/suites/plugin_message.h"

/// The size, in bytes, of a buffer for a text of a string list.
constexpr size_t kListTextSize = 256;

/// Reads entry `index`, from 1, of a string list of `module`, the plug-in or the host's own, into
/// `buffer` of `size` bytes, truncated if necessary. Returns whether the entry exists and is not
/// empty; otherwise `buffer` becomes the empty string. "KDM Basic Suite" must be held.
bool ReadListEntry(ModuleRef module, int32_t list, int32_t index, char* buffer, size_t size);
