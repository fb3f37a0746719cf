#include "check/open_dialog.h"

#include <stdexcept>

#include "platform/nrvcore/unicode.h"

namespace check {

using nrvui::ui::UI_Node;

nrvui::ui::UI_Node& OpenDialog::Node(const std::string& nodeID) const {
  UI_Node* found = nullptr;
  nrvui::ui::ForEachBelow<UI_Node>(dialog, [&](UI_Node& node) {
    if (!found && node.UI_GetNodeID().View() == nodeID) found = &node;
  });
  if (!found) throw std::runtime_error("the dialog has no " + nodeID);
  return *found;
}

std::string OpenDialog::Label(const char* nodeID) const {
  return Utf8(Get<nrvui::controls::UI_StaticText>(nodeID).GetValue());
}

std::string OpenDialog::Text(const char* nodeID) const {
  return Utf8(Get<nrvui::controls::UI_TextEdit>(nodeID).GetValue());
}

void OpenDialog::Enter(const std::string& nodeID, const std::string& text) const {
  (void)nrvui::gestures::Enter(dialog, Node(nodeID), nrvcore::utility::UTF8ToUTF16(text));
}

void OpenDialog::Click(const std::string& nodeID) const {
  (void)nrvui::gestures::Click(dialog, Node(nodeID));
}

std::string Utf8(const nrvcore::UTF16String& text) {
  return nrvcore::utility::UTF16ToUTF8(text.View());
}

}  // namespace check
