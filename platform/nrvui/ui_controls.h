#pragma once

#include "platform/nrvcore/error.h"
#include "platform/nrvui/ui_views.h"

namespace nrvui::ui {

/// A message about a node. The toolkit delivers it to one function; it exists only during the
/// delivery. Its class states what happened.
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

/// Adapts a function that takes a specific message class to one that takes the generic class.
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

namespace nrvui::controls {

using ChangeNotifyFunction = boost::function<void(ui::MessageT<ui::UI_Node>*)>;

/// The base of all controls. Its setters are for code and do not call the change handler; user
/// input goes through the gestures (gesture.h), which do.
class NRV_EXPORT UI_ControlView : public ui::UI_SubView {
 public:
  ~UI_ControlView() override;

  /// Replaces the change handler, which is called after the user has changed the control; null
  /// removes it.
  void NotifyWhenChanged(const boost::shared_ptr<ChangeNotifyFunction>& notifyFunction);
  /// Calls the change handler. For gestures.
  void NotifyChangedByUser();

  void SetDisabled(bool disable);
  bool IsDisabled() const { return isDisabled; }

  /// '&' precedes the mnemonic; "&&" is an ampersand.
  void SetCaption(const nrvcore::UTF16String& newCaption) { UI_SetMember(caption, newCaption); }
  const nrvcore::UTF16String& GetCaption() const { return caption; }
  /// Localisation keys of two sentences: the control's purpose, and why it is disabled.
  void SetHelp(const nrvcore::String& key) { UI_SetMember(help, key); }
  void SetDisabledHelp(const nrvcore::String& key) { UI_SetMember(disabledHelp, key); }
  /// The sentence for the present state, in the user's language. Empty without a key.
  nrvcore::UTF16String GetHelp() const;
  void ShowMnemonic(bool show);
  bool IsMnemonicShown() const { return mnemonicShown; }

 private:
  boost::shared_ptr<ChangeNotifyFunction> changed;
  nrvcore::UTF16String caption;
  nrvcore::String help;  // a key, because localising all help texts would slow down each opening
  nrvcore::String disabledHelp;
  bool isDisabled = false;
  bool mnemonicShown = false;
};

/// A push button. Its change handler is called for each press.
class NRV_EXPORT UI_Button : public UI_ControlView {
 public:
  ~UI_Button() override;
};

/// A button that shows a caption and no icon.
class NRV_EXPORT UI_TextButton : public UI_Button {
 public:
  ~UI_TextButton() override;
};

/// A text that the user cannot edit. With a buddy it is the label of that control and may have a
/// mnemonic; without one it is shown literally.
class NRV_EXPORT UI_StaticText : public UI_ControlView {
 public:
  ~UI_StaticText() override;

  /// The caption, under the name that it has in fields.
  void SetValue(const nrvcore::UTF16String& text);
  const nrvcore::UTF16String& GetValue() const { return GetCaption(); }

  /// The node ID of the labelled control; empty for none.
  void SetBuddy(const nrvcore::String& nodeID) { UI_SetMember(buddy, nodeID); }
  const nrvcore::String& GetBuddy() const { return buddy; }

 private:
  nrvcore::String buddy;
};

/// A check box; a click toggles it.
class NRV_EXPORT UI_Checkbox : public UI_ControlView {
 public:
  ~UI_Checkbox() override;

  bool IsChecked() const;
  void SetChecked(bool check);

 private:
  bool checked = false;
};

enum RadioValue { kRadioOff = 0, kRadioOn = 1 };

/// A radio button. Those of a dialog with the same group name form a group. A click (gesture.h)
/// deselects the others of the group; setting a value from code does not.
class NRV_EXPORT UI_RadioButton : public UI_ControlView {
 public:
  ~UI_RadioButton() override;

  RadioValue GetValue() const { return value; }
  void SetValue(RadioValue newValue);

  void SetGroup(const nrvcore::String& name) { UI_SetMember(group, name); }
  const nrvcore::String& GetGroup() const { return group; }

 private:
  RadioValue value = kRadioOff;
  nrvcore::String group;
};

}  // namespace nrvui::controls
