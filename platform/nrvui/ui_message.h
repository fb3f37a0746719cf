#pragma once

#include <boost/function.hpp>

#include "platform/nrvcore/error.h"
#include "platform/nrvui/ui_node.h"

namespace nrvui::ui {

/// A message about a node, delivered to one function; its class is its kind. It exists only during
/// the delivery.
template <class Node>
class NRV_EXPORT MessageT {
 public:
  MessageT();
  MessageT(const MessageT&) = delete;
  MessageT& operator=(const MessageT&) = delete;
  virtual ~MessageT();
};

extern template class MessageT<UI_Node>;

/// The user changed a control.
class NRV_EXPORT UI_ControlChangedMessage : public MessageT<UI_Node> {
 public:
  ~UI_ControlChangedMessage() override;
};

/// Adapts a function for a specific message class to the generic class.
template <class Generic, class Specific>
class MessageFunctionAdapter {
 public:
  explicit MessageFunctionAdapter(const boost::function1<void, Specific*>& specificFunction)
      : function(specificFunction) {}

  /// Throws the invalid-type-conversion error for a null message or one of another class, and
  /// boost::bad_function_call when the function is empty.
  void operator()(Generic* message) const {
    auto* specific = dynamic_cast<Specific*>(message);
    if (specific == nullptr) nrvcore::config::ThrowInvalidTypeConversion();
    function(specific);
  }

 private:
  boost::function1<void, Specific*> function;
};

}  // namespace nrvui::ui
