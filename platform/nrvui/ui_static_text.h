#pragma once

#include "platform/nrvui/ui_control_view.h"

namespace nrvui::controls {

/// A text that nobody edits: the label of a buddy control, whose text is then a caption with a
/// mnemonic, or a value, which is shown as it stands.
class NRV_EXPORT UI_StaticText : public UI_ControlView {
 public:
  UI_StaticText();
  ~UI_StaticText() override;

  /// The same text as the caption's.
  void SetValue(const nrvcore::UTF16String& text);
  const nrvcore::UTF16String& GetValue() const;

  /// The node ID of the control that this labels; empty for none.
  void SetBuddy(const nrvcore::String& nodeID);
  const nrvcore::String& GetBuddy() const;

 private:
  nrvcore::String buddy;
};

}  // namespace nrvui::controls
