#include "platform/nrvui/ui_message.h"

namespace nrvui::ui {

template <class Node>
MessageT<Node>::MessageT() = default;

template <class Node>
MessageT<Node>::~MessageT() = default;

template class MessageT<UI_Node>;

UI_ControlChangedMessage::~UI_ControlChangedMessage() = default;

}  // namespace nrvui::ui
