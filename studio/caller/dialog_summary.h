#pragma once

#include "platform/qt/dialog_listener.h"
#include "studio/caller/dialog_choices.h"
#include "studio/picture/picture.h"

/// What OK would lead to, for the dialog's message line. It is a warning when there can be no
/// mosaic, with the reason, and when numbers in the fields differ from those that are used.
qtui::Summary SummaryFor(const Picture& picture, const Forecast& forecast);
