#pragma once

#include "platform/nrvui/outcome.h"
#include "platform/nrvui/ui_control_view.h"

namespace nrvui::controls {

/// A field in which a person edits a text.
class NRV_EXPORT UI_TextEdit : public UI_ControlView {
 public:
  UI_TextEdit();
  ~UI_TextEdit() override;

  /// The text that the field displays.
  virtual nrvcore::UTF16String GetValue() const;
  virtual void SetValue(const nrvcore::UTF16String& newText);

  /// Takes what a person entered, as far as it is fit for the field. Notifies nobody.
  virtual gestures::Outcome AcceptEntry(const nrvcore::UTF16String& entry);

 private:
  nrvcore::UTF16String text;
};

}  // namespace nrvui::controls
