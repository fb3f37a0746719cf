#include <malloc.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <fstream>
#include <optional>

#include "check/checked_module.h"
#include "check/mosaic_model.h"
#include "platform/nrvcore/file.h"
#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/gesture.h"
#include "platform/nrvui/scripted_presenter.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"
#include "platform/qpbasic/ledger.h"
#include "platform/standin/layout_reader.h"
#include "platform/standin/sheet_service.h"
#include "testkit/known_messages.h"
#include "testkit/open_dialog.h"
#include "testkit/random.h"
#include "testkit/temporary_folder.h"

namespace check {
namespace {

using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_RadioButton;
using nrvui::controls::UI_StaticText;
using nrvui::controls::UI_UnitNumberEdit;
using nrvui::gestures::Key;
using nrvui::gestures::Press;
using nrvui::ui::UI_Dialog;
using nrvui::ui::UI_Node;
using namespace testkit;

/// Plays with `count` seeds, one after the other, until something is found.
void ForEachSeed(size_t part, size_t count, const std::function<void(Random& random)>& play) {
  uint64_t seed = settings.seed + part * count;
  for (size_t i = 0; i < count && !HasFailed(); ++i, ++seed) {
    const Trying trying("seed " + std::to_string(seed));
    Tell("");
    Random random(seed);
    play(random);
  }
}

/// Registers numbered checks, each with seeds of its own.
void AddParts(const Add& add, const std::string& name, size_t count, void (*run)(size_t part)) {
  for (size_t part = 0; part < count; ++part)
    add(name + std::to_string(part + 1), [run, part] { run(part); });
}

/// The number of cases in a part.
size_t Count(size_t inShort, size_t inLong) {
  return settings.isLong ? inLong : inShort / Step();
}

// Random records and gestures: the dialog must do what the model does.

constexpr const char* kFields[] = {"NewWidthTxt",      "NewHeightTxt",     "HorizontalCountTxt",
                                   "VerticalCountTxt", "TileSpaceHorzTxt", "TileSpaceVertTxt"};
constexpr const char* kClickable[] = {
    "HorizontalRadio", "VerticalRadio",   "ColorRadio",           "GrayRadio",
    "UsePercentChk",   "DeleteRasterChk", "MosaicUseRatioButton", "MosaicUseRatioButton"};
constexpr const char* kOthers[] = {"OrigWidthStatic", "OrigHeightStatic", "okButton",
                                   "cancelButton"};
constexpr const char* kNotNumbers[] = {"", "+", "--5", "0x10", "nan", "inf", "1e999", "7 parsecs"};

/// Random bytes.
template <typename Value>
Value RandomValue(Random& random) {
  uint8_t bytes[sizeof(Value)];
  for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(random());
  Value value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

/// Random bytes, with likely values in most of the fields that matter.
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
  if (Once(random, 12)) return {Pick(random, kNotNumbers), "", false};
  std::string number = Once(random, 8) ? "-" : "";
  number += std::to_string(Below(random, Pick(random, kRanges)));
  if (Once(random, 3)) number += '.' + std::to_string(Below(random, 10000));
  if (Once(random, 20)) number += 'e' + std::to_string(Below(random, 5));
  return {number, Pick(random, kUnits)};
}

/// Makes random gestures and compares the dialog with the model after each.
class RandomUser final : public nrvui::ui::DialogPresenter {
 public:
  RandomUser(Random& randomNumbers, MosaicModel& mosaicModel)
      : random(randomNumbers), model(mosaicModel) {}

  void Present(UI_Dialog& dialog) override {
    nrvui::ui::ForEachBelow<UI_Node>(
        dialog, [&](UI_Node& node) { nodes[std::string(node.UI_GetNodeID().View())] = &node; });
    ExpectControls();
    ExpectSourceSize();
    for (size_t gestures = Below(random, 25); gestures > 0; --gestures) {
      Act(dialog);
      ExpectControls();
    }
    if (Once(random, 5)) return;
    if (Once(random, 10)) {
      const bool closes = Once(random, 2);
      Tell(closes ? "close" : "key Escape");
      (void)(closes ? nrvui::gestures::Close(dialog) : Press(dialog, Key::kEscape));
      model.Cancel();
    }
    Tell("key Return");
    (void)Press(dialog, Key::kReturn);
    model.Confirm();
  }

 private:
  void Act(UI_Dialog& dialog) {
    if (Once(random, 40)) {
      const size_t width = Below(random, 2000), height = Below(random, 2000);
      Tell("resize " + std::to_string(width) + " " + std::to_string(height));
      (void)nrvui::gestures::Resize(dialog,
                                    {static_cast<float>(width), static_cast<float>(height)});
    }
    const bool enters = Once(random, 2);
    std::string control = enters ? Pick(random, kFields) : Pick(random, kClickable);
    if (Once(random, 30)) control = Once(random, 2) ? Pick(random, kOthers) : Pick(random, kFields);
    if (enters) {
      const MosaicModel::Entry entry = RandomEntry(random);
      Tell("enter " + control + " " + entry.number + entry.unit);
      (void)nrvui::gestures::Enter(dialog, *nodes.at(control),
                                   nrvcore::utility::UTF8ToUTF16(entry.number + entry.unit));
      model.Enter(control, entry);
    } else {
      Tell("click " + control);
      (void)nrvui::gestures::Click(dialog, *nodes.at(control));
      model.Click(control);
    }
  }

  void ExpectSourceSize() {
    for (const auto& [label, text] : model.SourceTexts())
      Expect(label, Utf8(dynamic_cast<UI_StaticText&>(*nodes.at(label)).GetValue()), text);
  }

  void ExpectControls() {
    for (const auto& [name, field] : model.Fields()) {
      const auto& edit = dynamic_cast<UI_UnitNumberEdit&>(*nodes.at(name));
      if (edit.GetNumber() == field.value && edit.GetLowerBound() == field.least &&
          edit.GetUpperBound() == field.most && !edit.IsDisabled())
        continue;
      const Trying trying(name);
      Expect("value", edit.GetNumber(), field.value);
      Expect("lower bound", edit.GetLowerBound(), field.least);
      Expect("upper bound", edit.GetUpperBound(), field.most);
      Expect("disabled", edit.IsDisabled(), false);
    }
    for (const char* name : kClickable) {
      const auto& control = dynamic_cast<nrvui::controls::UI_ControlView&>(*nodes.at(name));
      const auto* box = dynamic_cast<const UI_Checkbox*>(&control);
      const auto* button = dynamic_cast<const UI_RadioButton*>(&control);
      const bool isOn = box ? box->IsChecked() : button && button->GetValue() != 0;
      const bool hasValue = box || button;
      if (control.IsDisabled() == model.IsDisabled(name) && (!hasValue || isOn == model.IsOn(name)))
        continue;
      const Trying trying(name);
      Expect("disabled", control.IsDisabled(), model.IsDisabled(name));
      if (hasValue) Expect("selected", isOn, model.IsOn(name));
    }
  }

  Random& random;
  MosaicModel& model;
  std::map<std::string, UI_Node*> nodes;
};

void PlayDialogs(size_t part) {
  RunningModule running;
  ForEachSeed(part, Count(1000, 40000), [&](Random& random) {
    CallerData data{RandomRecord(random), RandomValue<MosaicDialogState>(random)};
    if (Once(random, 2)) data.state.usePercent = 0;
    Tell(Text(data));
    MosaicModel model(data.record, data.state);
    const CallerData given = data;
    RandomUser person(random, model);
    const nrvui::ui::InstalledPresenter installed(person);
    const ResultCode code = running.RunDialog(data);
    // A dialog that is left open is cancelled.
    Expect("the answer", code, model.IsOk() ? kSuccess : kCancelled);
    ExpectFields(data, model.IsOk() ? CallerData{model.Record(), model.State()} : given);
  });
}

const Registration kDialogs([](const Add& add) {
  AddParts(add, "random/dialogs-", 8, PlayDialogs);
});

// Random messages. The host's operations that the plug-in calls depend only on the message and on
// whether the plug-in holds its suites; the answer is always success.

constexpr const char* kNotifierTypes[] = {messages::kStartedNotifierType, "VX Other", ""};

/// The text, or one that differs slightly.
std::string Near(Random& random, const std::string& text) {
  const std::string damaged = Damaged(random, text);
  return Once(random, 2) ? text : damaged.substr(0, damaged.find('\0'));
}

/// Sends a random message of the lifecycle. Returns whether the plug-in then holds its suites.
bool SendLifecycle(Random& random, standin::Module& module) {
  const bool exists = module.Globals();
  Tell(exists ? "shut-down, unload or reload" : "start-up");
  if (!exists || Once(random, 4)) {  // a host starts a plug-in once
    Expect(exists ? "the shut-down" : "the start-up", exists ? module.ShutDown() : module.StartUp(),
           kSuccess);
    return !exists;
  }
  const bool unloads = Once(random, 2);
  const MessageName& name = unloads ? messages::kUnload : messages::kReload;
  Expect(name.selector, module.Send(name), kSuccess);
  return !unloads;
}

void SendAny(Random& random, RunningModule& running, bool holdsSuites) {
  const KnownMessage& known = Pick(random, kKnownMessages);
  const std::string caller =
      Near(random, Once(random, 8) ? messages::kNotifierCaller : known.caller);
  const std::string selector =
      Near(random, Once(random, 4) ? Pick(random, kKnownMessages).selector : known.selector);
  const std::string message = caller + " / " + selector;
  Tell(message);
  if (message == "QP Access / Unload") return;
  const bool notifies = caller == messages::kNotifierCaller;

  Calls expected;
  if (holdsSuites && notifies) expected = kCallsForNotifier;
  if (holdsSuites && message == "QP Interface / About") expected = kCallsForAbout;
  running.ExpectCalls(message, expected, [&] {
    return notifies ? running.module.Notify(Pick(random, kNotifierTypes), selector.c_str())
                    : running.module.Send(caller.c_str(), selector.c_str());
  });
}

void SendMessages(size_t part) {
  RunningModule running;
  bool holdsSuites = true;
  ForEachSeed(part, Count(1000, 50000), [&](Random& random) {
    for (int i = 0; i < 50; ++i) {
      if (Once(random, 10)) {
        holdsSuites = SendLifecycle(random, running.module);
      } else {
        SendAny(random, running, holdsSuites);
      }
    }
    // A plug-in runs when a seed begins, so that the seed can be repeated alone.
    while (!holdsSuites) holdsSuites = SendLifecycle(random, running.module);
  });
  Expect("alerts", running.person.alerts, Calls());
}

const Registration kMessages([](const Add& add) {
  AddParts(add, "random/messages-", 4, SendMessages);
});

// Damaged resources: the host rejects them, or the dialog can be used and the alerts can be read.

/// The result of `read`; nothing if it rejects the file.
template <typename Read>
auto ReadOrReject(Read read) -> std::optional<decltype(read())> try {
  return read();
} catch (const nrvcore::FileError&) {
  return std::nullopt;
}

CHECK("random/damaged-layouts") {
  const char* const kLayout = "layouts/16301.xml";
  const std::string original = ContentOf(Resources().plugin / kLayout);
  const std::string gestures =
      "enter HorizontalCountTxt 40\nenter NewWidthTxt 2.5 in\nclick UsePercentChk\n"
      "click MosaicUseRatioButton\nresize 480 360\nclick GrayRadio\nkey Return";
  const TemporaryFolder resources;
  RunningModule running({resources.path, resources.path});
  ForEachSeed(0, Count(1500, 150000), [&](Random& random) {
    const std::string layout = Once(random, 2) ? original : Damaged(random, original);
    const std::string played = Once(random, 2) ? gestures : Damaged(random, gestures);
    const auto script =
        ReadOrReject([&] { return nrvui::gestures::GestureScript::Parse(played, "gestures"); });
    if (!script) return;
    const bool isRead = ReadOrReject([&] {
                          return standin::ParseLayout(layout, kLayout, standin::MakeLiveToken());
                        }).has_value();
    resources.Write(kLayout, layout);
    nrvui::gestures::ScriptedPresenter person(*script);
    const nrvui::ui::InstalledPresenter installed(person);
    Tell(played);
    CallerData data{{}, {}};
    const ResultCode code = running.RunDialog(data);
    if (code != kSuccess) ExpectFields(data, {{}, {}});
    if (person.Error()) Expect("the answer", code, kCancelled);
    if (!isRead) Expect("the answer without a layout", code, kCannot);
    Expect("left of the sheet", running.host.Sheets().Leftovers(), Calls());
  });
}

CHECK("random/damaged-texts") {
  const std::string original = ContentOf(Resources().plugin / "strings/16050.txt");
  ForEachSeed(0, Count(1500, 150000), [&](Random& random) {
    const std::string text = Damaged(random, original);
    const auto list = ReadOrReject([&] { return standin::ParseStringList(text, "16050.txt"); });
    if (!list) return;
    CheckedModule checked;
    checked.host.Lists().Replace(standin::ListOwner::kPlugin, 16050, *list);
    const auto code = ResultCode{static_cast<int32_t>(Below(random, 1000)) + 1};
    checked.host.Operations().Refuse("QP Plug-ins Suite/SetPluginName", code);
    Expect("the start-up", checked.module.StartUp(), code);
    if (checked.person.alerts.size() > 1) Expect("alerts", checked.person.alerts.size(), 1u);
    for (const std::string& alert : checked.person.alerts)
      if (alert.size() > 255 || !nrvcore::utility::IsValidUTF8(alert)) Fail("alert: " + alert);
    checked.ExpectNothingLeft();
  });
}

// A long life: memory, descriptors and speed stay the same.

constexpr size_t kBatches = 20;

/// The resources of the process after a batch of work, and the processor time of the batch.
struct Measure {
  std::clock_t ticks;
  size_t blocks = qpbasic::Ledger::Get().Counts().blocks;
  long descriptors = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  size_t heapBytes = 0;
  long residentPages = 0;
};

Measure PlayBatch(RunningModule& running, size_t dialogs, size_t reloads) {
  const std::clock_t start = std::clock();
  for (size_t i = 0; i < dialogs; ++i) {
    CallerData data;
    Expect("a dialog", running.RunDialog(data), kSuccess);
  }
  for (size_t i = 0; i < reloads; ++i) {
    Expect("an unload", running.module.Unload(), kSuccess);
    Expect("a reload", running.module.Reload(), kSuccess);
  }
  Measure measure{std::clock() - start};
  measure.heapBytes = mallinfo2().uordblks;
  std::ifstream("/proc/self/statm") >> measure.residentPages >> measure.residentPages;
  return measure;
}

/// Expects that the amount has not grown by more than the allowance.
void ExpectNoMore(const char* what, auto last, auto first, decltype(first) allowance) {
  if (last > first + allowance) Expect(what, last, first);
}

/// Whether the second half of the batches takes half as long again as the first. Compares the
/// fastest batches, because other programs delay some.
bool BecomesSlower(RunningModule& running, size_t dialogs, size_t reloads) {
  std::clock_t fastest[2] = {};
  for (size_t i = 0; i < kBatches; ++i) {
    const std::clock_t ticks = PlayBatch(running, dialogs, reloads).ticks;
    std::clock_t& half = fastest[i * 2 / kBatches];
    half = half == 0 ? ticks : std::min(half, ticks);
  }
  return fastest[1] > fastest[0] * 3 / 2;
}

CHECK("life/keeps-memory-and-speed") {
  nrvui::gestures::ScriptedPresenter user(nrvui::gestures::GestureScript::Parse(
      "enter HorizontalCountTxt 12\nclick MosaicUseRatioButton\nkey Return", "long run"));
  const nrvui::ui::InstalledPresenter installed(user);
  RunningModule running;
  const size_t dialogs = Count(2000, 100000) / kBatches;
  const size_t reloads = settings.isLong ? 50 : 3;
  const size_t warmUp = kBatches * 3 / 4;
  for (size_t i = 0; i < warmUp; ++i) PlayBatch(running, dialogs, reloads);
  const Measure warm = PlayBatch(running, dialogs, reloads);
  // Load on the machine can slow one measurement down.
  size_t attempts = 3;
  while (BecomesSlower(running, dialogs, reloads) && --attempts > 0) continue;
  if (attempts == 0) Fail("becomes slower by half in " + std::to_string(kBatches) + " batches");
  const Measure last = PlayBatch(running, dialogs, reloads);
  Expect("open descriptors", last.descriptors, warm.descriptors);
  Expect("blocks", last.blocks, warm.blocks);
#ifndef __SANITIZE_ADDRESS__  // which keeps freed memory for a while
  ExpectNoMore("bytes of the system's allocator", last.heapBytes, warm.heapBytes, 8 << 10);
  ExpectNoMore("pages of memory", last.residentPages, warm.residentPages, 32);
#endif
}

}  // namespace
}  // namespace check
