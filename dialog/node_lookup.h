#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include "platform/nrvcore/string.h"
#include "platform/nrvui/ui_node.h"

/// The first node in breadth-first order, `root` included, whose ID is exactly `nodeID`; null if
/// there is none. The tree must not change during the call. Each queue entry holds one reference to
/// its node, and each ID is read as a copy, as the toolkit returns it. Nothing is cached between
/// calls. Throws std::bad_alloc, with every reference released, if the queue cannot grow.
boost::intrusive_ptr<nrvui::ui::UI_Node> FindNodeByID(nrvui::ui::UI_Node& root,
                                                      const nrvcore::String& nodeID);
