#pragma once

#include "platform/suites/plugin_message.h"
#include "platform/suites/result_code.h"

/// True for the codes that mean cancelled, nothing to do or already handled: never shown.
bool IsSilent(ResultCode code);

/// Shows the user what went wrong in the host's alert, unless the code is silent or no text is
/// found. Never throws: whatever fails in here only means that nothing is shown.
void ShowFailure(PluginRef plugin, ResultCode code) noexcept;
