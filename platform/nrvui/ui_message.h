#pragma once

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
  UI_ControlChangedMessage();
  ~UI_ControlChangedMessage() override;
};

}  // namespace nrvui::ui
