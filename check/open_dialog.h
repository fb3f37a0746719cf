#pragma once

#include <string>

#include "platform/nrvui/gesture.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"

namespace check {

/// The dialog as a person sees it: controls by ID, texts as UTF-8.
struct OpenDialog {
  /// Throws std::runtime_error where the dialog has no such control.
  nrvui::ui::UI_Node& Node(const std::string& nodeID) const;
  template <class Control = nrvui::controls::UI_ControlView>
  Control& Get(const std::string& nodeID) const {
    return dynamic_cast<Control&>(Node(nodeID));
  }
  std::string Label(const char* nodeID) const;
  std::string Text(const char* nodeID) const;
  void Enter(const std::string& nodeID, const std::string& text) const;
  void Click(const std::string& nodeID) const;
  void Confirm() const { (void)nrvui::gestures::Press(dialog, nrvui::gestures::Key::kReturn); }

  nrvui::ui::UI_Dialog& dialog;
};

std::string Utf8(const nrvcore::UTF16String& text);

}  // namespace check
