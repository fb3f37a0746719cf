#pragma once

#include "platform/suites/plugin_message.h"
#include "platform/suites/result_code.h"

/// The error report: shows the user, through the host's alert, why a message failed. PluginMain and
/// Plugin::ReportFailure call it on the host's main thread.

/// Whether the code means cancelled, nothing to do or already handled. Such a code is never shown.
bool IsSilent(ResultCode code);

/// Shows the text for `code`, unless the code is silent or has no text. Acquires the suites that it
/// needs and releases those that were not held before. If anything fails, nothing is shown.
void ShowFailure(PluginRef plugin, ResultCode code) noexcept;
