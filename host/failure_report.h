#pragma once

#include "host/string_list.h"
#include "platform/suites/plugin_message.h"
#include "platform/suites/result_code.h"

/// True for the codes that mean cancelled, nothing to do or already handled: never shown.
bool IsSilent(ResultCode code);

/// Finds the plug-in's text for a code. `text` receives it; `*isDefault` tells whether it is the
/// list's default text, which has one "%s" for the code. Answers `text`, or null when the
/// plug-in has none. "KDM Basic Suite" must be held.
const char* LookupErrorText(PluginRef plugin, ResultCode code, char (&text)[kListTextSize],
                            bool* isDefault);

/// Shows the user what went wrong in the host's alert, unless the code is silent or no text is
/// found. Never throws: whatever fails in here only means that nothing is shown.
void ShowFailure(PluginRef plugin, ResultCode code) noexcept;
