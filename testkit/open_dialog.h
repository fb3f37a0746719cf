#pragma once

#include <stdexcept>
#include <string>

#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/gesture.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"

namespace testkit {

inline std::string Utf8(const nrvcore::UTF16String& text) {
  return nrvcore::utility::UTF16ToUTF8(text.View());
}

/// The dialog as a person sees it: controls by ID, texts as UTF-8.
struct OpenDialog {
  /// Throws std::runtime_error where the dialog has no such control.
  nrvui::ui::UI_Node& Node(const std::string& nodeID) const {
    nrvui::ui::UI_Node* found = nullptr;
    nrvui::ui::ForEachBelow<nrvui::ui::UI_Node>(dialog, [&](nrvui::ui::UI_Node& node) {
      if (!found && node.UI_GetNodeID().View() == nodeID) found = &node;
    });
    if (!found) throw std::runtime_error("the dialog has no " + nodeID);
    return *found;
  }
  template <class Control = nrvui::controls::UI_ControlView>
  Control& Get(const std::string& nodeID) const {
    return dynamic_cast<Control&>(Node(nodeID));
  }
  std::string Label(const char* nodeID) const {
    return Utf8(Get<nrvui::controls::UI_StaticText>(nodeID).GetValue());
  }
  std::string Text(const char* nodeID) const {
    return Utf8(Get<nrvui::controls::UI_TextEdit>(nodeID).GetValue());
  }
  void Enter(const std::string& nodeID, const std::string& text) const {
    (void)nrvui::gestures::Enter(dialog, Node(nodeID), nrvcore::utility::UTF8ToUTF16(text));
  }
  void Click(const std::string& nodeID) const {
    (void)nrvui::gestures::Click(dialog, Node(nodeID));
  }
  void Confirm() const { (void)nrvui::gestures::Press(dialog, nrvui::gestures::Key::kReturn); }

  nrvui::ui::UI_Dialog& dialog;
};

}  // namespace testkit
