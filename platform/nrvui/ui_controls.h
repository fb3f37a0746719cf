#pragma once

#include "platform/nrvui/ui_message.h"
#include "platform/nrvui/ui_views.h"

namespace nrvui::controls {

using ChangeNotifyFunction = boost::function<void(ui::MessageT<ui::UI_Node>*)>;

/// A control. Its setters are for code and do not notify. User input goes through the gestures
/// (gesture.h), which notify the handler of the control that the user touched.
class NRV_EXPORT UI_ControlView : public ui::UI_SubView {
 public:
  ~UI_ControlView() override;

  /// Sets the handler, which is called after the user has changed the control; null removes it.
  void NotifyWhenChanged(const boost::shared_ptr<ChangeNotifyFunction>& notifyFunction);
  /// Calls the handler. For gestures.
  void NotifyChangedByUser();

  void SetDisabled(bool disable);
  bool IsDisabled() const { return isDisabled; }

  /// In a caption '&' precedes the mnemonic; "&&" is an ampersand.
  void SetCaption(const nrvcore::UTF16String& newCaption);
  const nrvcore::UTF16String& GetCaption() const { return caption; }
  /// Keys of two sentences: the control's purpose, and why it is disabled.
  void SetHelp(const nrvcore::String& key);
  void SetDisabledHelp(const nrvcore::String& key);
  /// The sentence for the present state, in the user's language; may be empty.
  nrvcore::UTF16String GetHelp() const;
  void ShowMnemonic(bool show);
  bool IsMnemonicShown() const { return mnemonicShown; }

 private:
  boost::shared_ptr<ChangeNotifyFunction> changed;
  nrvcore::UTF16String caption;
  nrvcore::String help;  // a key: localising each help text would slow the opening of every dialog
  nrvcore::String disabledHelp;
  bool isDisabled = false;
  bool mnemonicShown = false;
};

/// A push button. It has no value; its handler is called for each press.
class NRV_EXPORT UI_Button : public UI_ControlView {
 public:
  ~UI_Button() override;
};

/// A button that shows only its caption.
class NRV_EXPORT UI_TextButton : public UI_Button {
 public:
  ~UI_TextButton() override;
};

/// A text that cannot be edited: with a buddy control it is the control's label and may have a
/// mnemonic; without one it is shown literally.
class NRV_EXPORT UI_StaticText : public UI_ControlView {
 public:
  ~UI_StaticText() override;

  /// The caption, under the name that fields have for it.
  void SetValue(const nrvcore::UTF16String& text);
  const nrvcore::UTF16String& GetValue() const { return GetCaption(); }

  /// The node ID of the control that this labels; empty for none.
  void SetBuddy(const nrvcore::String& nodeID);
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

/// One of a dialog's radio buttons with the same group name. A click (gesture.h) deselects the
/// others of the group; setting a value from code does not.
class NRV_EXPORT UI_RadioButton : public UI_ControlView {
 public:
  ~UI_RadioButton() override;

  RadioValue GetValue() const { return value; }
  void SetValue(RadioValue newValue);

  void SetGroup(const nrvcore::String& name);
  const nrvcore::String& GetGroup() const { return group; }

 private:
  RadioValue value = kRadioOff;
  nrvcore::String group;
};

}  // namespace nrvui::controls
