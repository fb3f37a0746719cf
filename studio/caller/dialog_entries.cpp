#include "studio/caller/dialog_entries.h"

#include <QStringList>
#include <charconv>
#include <cmath>
#include <iterator>

#include "platform/nrvui/gesture.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"
#include "platform/nrvui/ui_node.h"
#include "studio/base/text.h"

using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_ControlView;
using nrvui::controls::UI_NumberEdit;
using nrvui::controls::UI_RadioButton;
using nrvui::ui::UI_Node;

namespace {

constexpr const char* kUsePercent = "UsePercentChk";
constexpr const char* kSizes[] = {"NewWidthTxt", "NewHeightTxt"};

/// 0 for an entry that is not there.
float Entry(const DialogEntries& entries, const std::string& id) {
  const auto found = entries.find(id);
  return found == entries.end() ? 0 : found->second;
}

void RemoveSize(DialogEntries& entries) {
  for (const char* field : kSizes) entries.erase(field);
}

/// The text that a user would type for a number.
nrvcore::UTF16String Typed(float number) {
  char digits[64];
  const char* const end =
      std::to_chars(digits, std::end(digits), number, std::chars_format::general).ptr;
  const QChar sign(nrvcore::config::Localizer::Get().GetDecimalSign());
  return ToToolkit(QString::fromLatin1(digits, end - digits).replace('.', sign));
}

}  // namespace

DialogEntries EntriesIn(const nrvui::ui::UI_Dialog& dialog) {
  DialogEntries entries;
  const auto note = [&](const UI_Node& node, float value) {
    entries.emplace(node.UI_GetNodeID().View(), value);
  };
  ForEachBelow<UI_Checkbox>(dialog, [&](UI_Checkbox& box) { note(box, box.IsChecked()); });
  ForEachBelow<UI_RadioButton>(dialog, [&](UI_RadioButton& radio) {
    note(radio, radio.GetValue() == nrvui::controls::kRadioOn);
  });
  ForEachBelow<UI_NumberEdit>(dialog,
                              [&](UI_NumberEdit& field) { note(field, float(field.GetNumber())); });
  return entries;
}

DialogEntries EntriesForOtherPictures(DialogEntries entries, const MosaicChoices& choices) {
  const auto& [params, state] = choices;
  const bool isOwnSize = state.usePercent == 0 &&
                         params.newWidth == float(params.boundsRight - params.boundsLeft) &&
                         params.newHeight == float(params.boundsBottom - params.boundsTop);
  if (isOwnSize) RemoveSize(entries);
  return entries;
}

QString DescriptionOf(const DialogEntries& entries) {
  const auto number = [&](const char* id) { return NumberForUser(Entry(entries, id)); };
  // The dialog returns counts and spacing as whole numbers.
  const auto whole = [&](const char* id) { return std::trunc(Entry(entries, id)); };
  QString text =
      Text("$$$/Studio/Preset/Tiles=%1 by %2 tiles", NumberForUser(whole("HorizontalCountTxt")),
           NumberForUser(whole("VerticalCountTxt")));
  const auto add = [&](const QString& part) {
    text = Text("$$$/Studio/Preset/Joined=%1, %2", text, part);
  };
  add(Entry(entries, "ColorRadio") != 0 ? Text("$$$/Studio/Preset/Color=colour")
                                        : Text("$$$/Studio/Preset/Gray=grey"));
  const bool isPercent = Entry(entries, kUsePercent) != 0;
  const bool isWhole = Entry(entries, kSizes[0]) == 100 && Entry(entries, kSizes[1]) == 100;
  if (entries.contains(kSizes[0]) && !(isPercent && isWhole)) {
    const char* const key =
        isPercent ? "$$$/Studio/Preset/Percent=%1 by %2 %" : "$$$/Studio/Preset/Points=%1 by %2 pt";
    add(Text(key, number(kSizes[0]), number(kSizes[1])));
  }
  const float spacingAcross = whole("TileSpaceHorzTxt");
  const float spacingDown = whole("TileSpaceVertTxt");
  if (spacingAcross != 0 || spacingDown != 0) {
    add(Text("$$$/Studio/Preset/Spacing=spacing %1 by %2 pt", NumberForUser(spacingAcross),
             NumberForUser(spacingDown)));
  }
  return text;
}

void FocusFirst(nrvui::ui::UI_Dialog& dialog, const std::string& id) {
  nrvui::ui::ForEachBelow<UI_Node>(dialog, [&](UI_Node& node) {
    if (node.UI_GetNodeID().View() == id) dialog.SetInitialFocus(&node);
  });
}

QString EnterAgain(nrvui::ui::UI_Dialog& dialog, const DialogEntries& entries) {
  QStringList changes;
  bool isLimited = false;
  const auto note = [&](const nrvui::gestures::Outcome& outcome) {
    const QString text = FromToolkit(Describe(outcome));
    if (!text.isEmpty() && !changes.contains(text)) changes += text;
  };
  const DialogEntries first = EntriesIn(dialog);
  ForEachBelow<UI_ControlView>(dialog, [&](UI_ControlView& control) {
    const std::string id(control.UI_GetNodeID().View());
    const auto wanted = entries.find(id);
    const bool isField = dynamic_cast<UI_NumberEdit*>(&control) != nullptr;
    if (wanted == entries.end() || isField) return;
    const bool isOn = wanted->second != 0;
    // A radio button goes off when another one of its group is clicked.
    if ((first.at(id) != 0) == isOn || (dynamic_cast<UI_RadioButton*>(&control) && !isOn)) return;
    isLimited |= nrvui::gestures::Click(dialog, control).IsRefused();
  });
  if (isLimited) {
    changes +=
        Text("$$$/Studio/Preset/Limited=Not all entries apply to a picture of unknown size.");
  }
  DialogEntries numbers = entries;
  const auto unit = entries.find(kUsePercent);
  if (unit != entries.end() && (unit->second != 0) != (EntriesIn(dialog).at(kUsePercent) != 0))
    RemoveSize(numbers);
  ForEachBelow<UI_NumberEdit>(dialog, [&](UI_NumberEdit& field) {
    const auto wanted = numbers.find(std::string(field.UI_GetNodeID().View()));
    if (wanted == numbers.end() || float(field.GetNumber()) == wanted->second) return;
    note(nrvui::gestures::Enter(dialog, field, Typed(wanted->second)));
  });
  return changes.join(' ');
}
