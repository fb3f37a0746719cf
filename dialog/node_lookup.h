#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include "platform/nrvcore/string.h"
#include "platform/nrvui/ui_node.h"

/// The first node in breadth-first order, `root` included, whose ID is exactly `nodeID`; null when
/// there is none. `root` must not be null, and the tree must not change meanwhile. Each node in
/// the queue is held by a reference of its own, and each ID is read as the toolkit gives it, a
/// copy. Nothing is kept from one call to the next. Throws std::bad_alloc, with every reference
/// released, when there is no memory for the queue.
boost::intrusive_ptr<nrvui::ui::UI_Node> FindNodeByID(
    const boost::intrusive_ptr<nrvui::ui::UI_Node>& root, const nrvcore::String& nodeID);
