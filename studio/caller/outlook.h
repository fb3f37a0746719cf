#pragma once

#include "platform/qt/dialog_listener.h"
#include "studio/caller/dialog_choices.h"
#include "studio/picture/picture.h"

/// What OK would lead to, in a sentence or two. It is a warning when there will be no mosaic, with
/// the reason, and when numbers in the fields differ from those that will be used.
qtui::Summary OutlookFor(const Picture& picture, const Forecast& forecast);
