#pragma once

#include "platform/nrvui/ui_message.h"
#include "platform/nrvui/ui_sub_view.h"

namespace nrvui::controls {

using ChangeNotifyFunction = boost::function<void(ui::MessageT<ui::UI_Node>*)>;

/// A control. Its setters are for code and notify nobody; what a person does goes through the
/// gestures, which notify the control that was touched.
class NRV_EXPORT UI_ControlView : public ui::UI_SubView {
 public:
  UI_ControlView();
  ~UI_ControlView() override;

  /// At most one function, called after a person changed the control; null takes it away.
  void NotifyWhenChanged(const boost::shared_ptr<ChangeNotifyFunction>& notifyFunction);
  /// Tells the function. For gestures.
  void NotifyChangedByPerson();

  void SetDisabled(bool disable);
  bool IsDisabled() const;

  /// In a caption '&' stands before the letter that is the control's mnemonic, "&&" for itself.
  void SetCaption(const nrvcore::UTF16String& newCaption);
  const nrvcore::UTF16String& GetCaption() const;
  void ShowMnemonic(bool show);
  bool IsMnemonicShown() const;

 private:
  boost::shared_ptr<ChangeNotifyFunction> changed;
  nrvcore::UTF16String caption;
  bool isDisabled = false;
  bool mnemonicShown = false;
};

}  // namespace nrvui::controls
