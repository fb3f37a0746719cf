#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include "platform/nrvcore/error.h"
#include "platform/nrvui/ui_node.h"

/// A control as class T. An empty handle stays empty; a control of another class raises the
/// toolkit's invalid-type-conversion error.
template <class T>
boost::intrusive_ptr<T> CheckedCast(const boost::intrusive_ptr<nrvui::ui::UI_Node>& node) {
  boost::intrusive_ptr<T> control = boost::dynamic_pointer_cast<T>(node);
  if (node && !control) nrvcore::config::ThrowInvalidTypeConversion();
  return control;
}
