#pragma once

#include <boost/function.hpp>

#include "platform/nrvcore/error.h"
#include "platform/nrvui/ui_node.h"

namespace nrvui::ui {

/// A message about a node, delivered to one function; its class says what happened. It lives for
/// the delivery only.
template <class Node>
class NRV_EXPORT MessageT {
 public:
  MessageT();
  MessageT(const MessageT&) = delete;
  MessageT& operator=(const MessageT&) = delete;
  virtual ~MessageT();
};

extern template class MessageT<UI_Node>;

/// A person changed a control.
class NRV_EXPORT UI_ControlChangedMessage : public MessageT<UI_Node> {
 public:
  ~UI_ControlChangedMessage() override;
};

/// Lets a function of a specific message class stand where one of the generic class is called.
template <class Generic, class Specific>
class MessageFunctionAdapter {
 public:
  explicit MessageFunctionAdapter(const boost::function1<void, Specific*>& specificFunction)
      : function(specificFunction) {}

  /// A message that is absent or of another class throws the invalid-type-conversion error; an
  /// empty function throws boost::bad_function_call.
  void operator()(Generic* message) const {
    auto* specific = dynamic_cast<Specific*>(message);
    if (specific == nullptr) nrvcore::config::ThrowInvalidTypeConversion();
    function(specific);
  }

 private:
  boost::function1<void, Specific*> function;
};

}  // namespace nrvui::ui
