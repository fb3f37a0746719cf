#pragma once

#include "platform/nrvcore/geometry.h"
#include "platform/nrvui/ui_layout.h"

namespace standin {

/// Gives everything in a layout its place and size by nominal metrics, with a fixed cell for every
/// character, so that rectangles mean something without a display. Returns the layout's natural
/// size, in points, which is also its rectangle then.
nrvcore::geom::PointT<float> LayOutNominally(nrvui::ui::UI_Layout& layout);

}  // namespace standin
