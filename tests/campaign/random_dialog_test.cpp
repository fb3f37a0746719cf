#include <cstring>
#include <sstream>

#include "campaign/built_module.h"
#include "campaign/campaign.h"
#include "campaign/mosaic_model.h"
#include "mosaic/mosaic_suite.h"
#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/gesture.h"
#include "platform/nrvui/node_walk.h"
#include "platform/nrvui/ui_unit_number_edit.h"

// Whatever a caller hands in and a person does, the dialog does what the model says.

namespace {

using campaign::Below;
using campaign::Once;
using campaign::Pick;
using campaign::Random;
using nrvui::controls::UI_UnitNumberEdit;
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

int32_t RandomBound(Random& random) {
  constexpr int32_t kEdges[] = {0, 1, -1, 32767, 32768, -32768, 65536, INT32_MAX, INT32_MIN};
  if (Once(random, 3)) return Pick(random, kEdges);
  return Once(random, 4) ? static_cast<int32_t>(random()) : static_cast<int32_t>(random() % 2000);
}

template <typename Bytes>
void Randomize(Random& random, Bytes& bytes) {
  for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(random());
}

/// Random bytes, tamed in places so that not every source is absurd.
MosaicModel::Record RandomRecord(Random& random) {
  MosaicModel::Record record;
  Randomize(random, record);
  for (const size_t flag : {8, 9, 10})
    if (!Once(random, 4)) record[flag] = random() % 2;
  if (!Once(random, 4)) record[76] = 0;
  for (const size_t integer : {12, 16, 44, 48, 52, 56}) {
    const int32_t value = RandomBound(random);
    if (!Once(random, 8)) std::memcpy(&record[integer], &value, sizeof value);
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
    ExpectFields();
    for (size_t gestures = Below(random, 25); gestures > 0; --gestures) Act(dialog);
    if (Once(random, 5)) return;
    Note("key Return");
    (void)nrvui::gestures::Press(dialog, nrvui::gestures::Key::kReturn);
    model.PressReturn();
  }

  std::string Done() const { return done.str(); }

 private:
  void Act(UI_Dialog& dialog) {
    const size_t kind = Below(random, 40);
    if (kind < 20) {
      Enter(dialog, Pick(random, kFields));
    } else if (kind < 36) {
      Click(dialog, Pick(random, kClickable));
    } else if (kind == 36) {
      Enter(dialog, Pick(random, kOthers));
    } else if (kind == 37) {
      Click(dialog, Once(random, 4) ? Pick(random, kOthers) : Pick(random, kFields));
    } else if (kind == 38) {
      Resize(dialog);
    } else if (Once(random, 4)) {
      Cancel(dialog);
    }
    ExpectFields();
  }

  void Enter(UI_Dialog& dialog, const std::string& control) {
    const MosaicModel::Entry entry = RandomEntry(random);
    Note("enter " + control + " " + entry.number + entry.unit);
    (void)nrvui::gestures::Enter(dialog, *nodes.at(control),
                                 nrvcore::utility::UTF8ToUTF16(entry.number + entry.unit));
    model.Enter(control, entry);
  }

  void Click(UI_Dialog& dialog, const std::string& control) {
    Note("click " + control);
    (void)nrvui::gestures::Click(dialog, *nodes.at(control));
    model.Click(control);
  }

  void Resize(UI_Dialog& dialog) {
    const auto extent = [&] { return static_cast<float>(Below(random, 2000)); };
    Note("resize");
    (void)nrvui::gestures::Resize(dialog, {extent(), extent()});
  }

  void Cancel(UI_Dialog& dialog) {
    Note("cancel");
    (void)(Once(random, 2) ? nrvui::gestures::Close(dialog)
                           : nrvui::gestures::Press(dialog, nrvui::gestures::Key::kEscape));
    model.Cancel();
  }

  void ExpectFields() {
    for (const char* field : kFields) {
      const auto& edit = dynamic_cast<UI_UnitNumberEdit&>(*nodes.at(field));
      EXPECT_EQ(edit.GetNumber(), model.Number(field)) << field << " after\n" << Done();
    }
  }

  void Note(const std::string& gesture) { done << gesture << '\n'; }

  Random& random;
  MosaicModel& model;
  std::map<std::string, UI_Node*> nodes;
  std::ostringstream done;
};

std::string Hex(const uint8_t* bytes, size_t size) {
  std::ostringstream text;
  text << std::hex;
  for (size_t i = 0; i < size; ++i) text << (i % 4 ? "" : " ") << bytes[i] / 16 << bytes[i] % 16;
  return text.str();
}

TEST(RandomDialog, DoesWhatTheModelSays) {
  BuiltModule built;
  const auto* suite = built.host.Suites().Find<MosaicSuite>();
  size_t confirmed = 0;
  campaign::ForEachSeed(campaign::Count(8000 / campaign::Step(1), 300000), [&](Random& random) {
    const MosaicModel::Record givenRecord = RandomRecord(random);
    MosaicModel::State givenState;
    Randomize(random, givenState);
    if (Once(random, 2)) givenState[5] = 0;
    MosaicModel model(givenRecord, givenState);

    MosaicParameters record;
    MosaicDialogState state;
    std::memcpy(&record, givenRecord.data(), sizeof record);
    std::memcpy(&state, givenState.data(), sizeof state);
    ModelledPerson person(random, model);
    const nrvui::ui::InstalledPresenter installed(person);
    MosaicParameters* params = &record;
    const ResultCode code = suite->RunMosaicDialog(&state, &params);
    EXPECT_EQ(code, model.Result()) << person.Done();

    const auto* recordBytes = reinterpret_cast<const uint8_t*>(&record);
    const auto* stateBytes = reinterpret_cast<const uint8_t*>(&state);
    EXPECT_EQ(Hex(recordBytes, 80), Hex(model.ResultRecord().data(), 80)) << person.Done();
    EXPECT_EQ(Hex(stateBytes, 8), Hex(model.ResultState().data(), 8)) << person.Done();
    confirmed += model.Result() == ResultCode::kSuccess;
  });
  EXPECT_GT(confirmed, 0u);
}

}  // namespace
