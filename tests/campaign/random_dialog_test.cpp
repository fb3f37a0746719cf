#include <cstring>

#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/gesture.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"
#include "platform/nrvui/ui_node.h"
#include "tests/campaign/mosaic_model.h"
#include "tests/support/built_module.h"
#include "tests/support/campaign.h"

// Whatever a caller hands in and a person does, the dialog does what the model says.

namespace {

using campaign::Below;
using campaign::Bytes;
using campaign::Once;
using campaign::Pick;
using campaign::Random;
using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_RadioButton;
using nrvui::controls::UI_UnitNumberEdit;
using nrvui::gestures::Key;
using nrvui::gestures::Press;
using nrvui::ui::UI_Dialog;
using nrvui::ui::UI_Node;

constexpr const char* kFields[] = {"NewWidthTxt",      "NewHeightTxt",     "HorizontalCountTxt",
                                   "VerticalCountTxt", "TileSpaceHorzTxt", "TileSpaceVertTxt"};
constexpr const char* kClickable[] = {
    "HorizontalRadio", "VerticalRadio",   "ColorRadio",           "GrayRadio",
    "UsePercentChk",   "DeleteRasterChk", "MosaicUseRatioButton", "MosaicUseRatioButton"};
constexpr const char* kOthers[] = {"OrigWidthStatic", "OrigHeightStatic", "okButton",
                                   "cancelButton"};
constexpr const char* kNoNumbers[] = {"", "+", "--5", "0x10", "nan", "inf", "1e999", "7 parsecs"};

/// Random bytes.
template <typename Value>
Value RandomValue(Random& random) {
  uint8_t bytes[sizeof(Value)];
  for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(random());
  Value value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

/// Random bytes, tamed in places so that not every source is absurd.
MosaicParameters RandomRecord(Random& random) {
  constexpr int32_t kEdges[] = {0, 1, -1, 32767, 32768, -32768, 65536, INT32_MAX, INT32_MIN};
  auto record = RandomValue<MosaicParameters>(random);
  for (uint8_t* flag : {&record.isColor, &record.deleteRaster, &record.keepHorizontal})
    if (!Once(random, 4)) *flag = random() % 2;
  if (!Once(random, 4)) record.sizeUnavailable = 0;
  for (int32_t* integer : {&record.tilesAcross, &record.tilesDown, &record.boundsLeft,
                           &record.boundsTop, &record.boundsRight, &record.boundsBottom}) {
    if (Once(random, 4)) continue;
    *integer = Once(random, 3) ? Pick(random, kEdges) : static_cast<int32_t>(random() % 2000);
  }
  return record;
}

MosaicModel::Entry RandomEntry(Random& random) {
  constexpr const char* kUnits[] = {"", "", "", "pt", "px", "in", "mm", "cm", "%"};
  constexpr size_t kRanges[] = {3, 20, 100, 1000, 10000, 1000000};
  if (Once(random, 12)) return {Pick(random, kNoNumbers), "", false};
  std::string number = Once(random, 8) ? "-" : "";
  number += std::to_string(Below(random, Pick(random, kRanges)));
  if (Once(random, 3)) number += '.' + std::to_string(Below(random, 10000));
  if (Once(random, 20)) number += 'e' + std::to_string(Below(random, 5));
  return {number, Pick(random, kUnits)};
}

/// A person who does something, and knows from the model what must come of it.
class ModelledPerson final : public nrvui::ui::DialogPresenter {
 public:
  ModelledPerson(Random& randomNumbers, MosaicModel& mosaicModel)
      : random(randomNumbers), model(mosaicModel) {}

  void Present(UI_Dialog& dialog) override {
    nrvui::ui::ForEachBelow<UI_Node>(
        dialog, [&](UI_Node& node) { nodes[std::string(node.UI_GetNodeID().View())] = &node; });
    ExpectControls();
    for (size_t gestures = Below(random, 25); gestures > 0; --gestures) {
      Act(dialog);
      ExpectControls();
    }
    if (Once(random, 5)) return;
    if (Once(random, 10)) {
      (void)(Once(random, 2) ? nrvui::gestures::Close(dialog) : Press(dialog, Key::kEscape));
      model.Cancel();
    }
    (void)Press(dialog, Key::kReturn);
    model.Confirm();
  }

 private:
  void Act(UI_Dialog& dialog) {
    if (Once(random, 40)) {
      const auto extent = [&] { return static_cast<float>(Below(random, 2000)); };
      (void)nrvui::gestures::Resize(dialog, {extent(), extent()});
    }
    const bool enters = Once(random, 2);
    std::string control = enters ? Pick(random, kFields) : Pick(random, kClickable);
    if (Once(random, 30)) control = Once(random, 2) ? Pick(random, kOthers) : Pick(random, kFields);
    if (enters) {
      const MosaicModel::Entry entry = RandomEntry(random);
      (void)nrvui::gestures::Enter(dialog, *nodes.at(control),
                                   nrvcore::utility::UTF8ToUTF16(entry.number + entry.unit));
      model.Enter(control, entry);
    } else {
      (void)nrvui::gestures::Click(dialog, *nodes.at(control));
      model.Click(control);
    }
  }

  void ExpectControls() {
    for (const auto& [name, field] : model.Fields()) {
      const auto& edit = dynamic_cast<UI_UnitNumberEdit&>(*nodes.at(name));
      EXPECT_EQ(edit.GetNumber(), field.value) << name;
      EXPECT_EQ(edit.GetLowerBound(), field.least) << name;
      EXPECT_EQ(edit.GetUpperBound(), field.most) << name;
      EXPECT_FALSE(edit.IsDisabled()) << name;
    }
    for (const char* name : kClickable) {
      const auto& control = dynamic_cast<nrvui::controls::UI_ControlView&>(*nodes.at(name));
      EXPECT_EQ(control.IsDisabled(), model.IsDisabled(name)) << name;
      const auto* box = dynamic_cast<const UI_Checkbox*>(&control);
      const auto* button = dynamic_cast<const UI_RadioButton*>(&control);
      if (box || button) {
        EXPECT_EQ(box ? box->IsChecked() : button->GetValue() != 0, model.IsOn(name)) << name;
      }
    }
  }

  Random& random;
  MosaicModel& model;
  std::map<std::string, UI_Node*> nodes;
};

TEST(RandomDialog, DoesWhatTheModelSays) {
  BuiltModule built;
  size_t confirmed = 0;
  campaign::ForEachSeed(campaign::Count(8000 / campaign::Step(1), 300000), [&](Random& random) {
    MosaicParameters record = RandomRecord(random);
    auto state = RandomValue<MosaicDialogState>(random);
    if (Once(random, 2)) state.usePercent = 0;
    const std::string given = Bytes(record) + Bytes(state);
    MosaicModel model(record, state);
    ModelledPerson person(random, model);
    const nrvui::ui::InstalledPresenter installed(person);
    const ResultCode code = built.RunDialog(record, state);
    // A dialog that was left open counts as cancelled.
    EXPECT_EQ(code, model.IsOk() ? ResultCode::kSuccess : ResultCode::kCancelled);
    EXPECT_EQ(Bytes(record) + Bytes(state),
              model.IsOk() ? Bytes(model.Record()) + Bytes(model.State()) : given);
    confirmed += model.IsOk();
  });
  EXPECT_GT(confirmed, 0u) << "a single seed that is played again may confirm none";
}

}  // namespace
