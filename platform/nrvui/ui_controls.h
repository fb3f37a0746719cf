#pragma once

#include "platform/nrvui/ui_message.h"
#include "platform/nrvui/ui_views.h"

namespace nrvui::controls {

using ChangeNotifyFunction = boost::function<void(ui::MessageT<ui::UI_Node>*)>;

/// A control. Its setters are for code and do not notify; what a person does goes through the
/// gestures, which notify the control that was touched.
class NRV_EXPORT UI_ControlView : public ui::UI_SubView {
 public:
  ~UI_ControlView() override;

  /// At most one function, called after a person changed the control; null takes it away.
  void NotifyWhenChanged(const boost::shared_ptr<ChangeNotifyFunction>& notifyFunction);
  /// Tells the function. For gestures.
  void NotifyChangedByPerson();

  void SetDisabled(bool disable);
  bool IsDisabled() const { return isDisabled; }

  /// In a caption '&' stands before the letter that is the control's mnemonic, "&&" for itself.
  void SetCaption(const nrvcore::UTF16String& newCaption);
  const nrvcore::UTF16String& GetCaption() const { return caption; }
  /// Keys of a sentence that says what the control is for, and of one that says why it is disabled.
  void SetHelp(const nrvcore::String& key);
  void SetDisabledHelp(const nrvcore::String& key);
  /// The sentence that fits its present state, in the user's language; may be empty.
  nrvcore::UTF16String GetHelp() const;
  void ShowMnemonic(bool show);
  bool IsMnemonicShown() const { return mnemonicShown; }

 private:
  boost::shared_ptr<ChangeNotifyFunction> changed;
  nrvcore::UTF16String caption;
  nrvcore::String help;  // a key, as few dialogs live until somebody wants the text
  nrvcore::String disabledHelp;
  bool isDisabled = false;
  bool mnemonicShown = false;
};

/// A push button. It has no value: its function is called for each press.
class NRV_EXPORT UI_Button : public UI_ControlView {
 public:
  ~UI_Button() override;
};

/// A button that shows its caption and nothing else.
class NRV_EXPORT UI_TextButton : public UI_Button {
 public:
  ~UI_TextButton() override;
};

/// A text that cannot be edited: the label of a buddy control, whose text is then a caption with a
/// mnemonic, or a value, which is shown as it stands.
class NRV_EXPORT UI_StaticText : public UI_ControlView {
 public:
  ~UI_StaticText() override;

  /// The same text as the caption's.
  void SetValue(const nrvcore::UTF16String& text);
  const nrvcore::UTF16String& GetValue() const { return GetCaption(); }

  /// The node ID of the control that this labels; empty for none.
  void SetBuddy(const nrvcore::String& nodeID);
  const nrvcore::String& GetBuddy() const { return buddy; }

 private:
  nrvcore::String buddy;
};

/// A caption with a mark that a click sets or takes away.
class NRV_EXPORT UI_Checkbox : public UI_ControlView {
 public:
  ~UI_Checkbox() override;

  bool IsChecked() const;
  void SetChecked(bool check);

 private:
  bool checked = false;
};

enum RadioValue { kRadioOff = 0, kRadioOn = 1 };

/// One of the buttons of its dialog that share a group name. The gesture of a click selects it and
/// no other of its group (gesture.h); setting a value from code leaves the others as they are.
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
