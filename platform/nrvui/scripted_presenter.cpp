#include "platform/nrvui/scripted_presenter.h"

#include <deque>
#include <utility>

#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/gesture.h"

namespace nrvui::gestures {

using ui::UI_Dialog;
using ui::UI_Node;

namespace {

/// The first match in breadth-first order, the one that the dialog itself would find.
UI_Node* FindControl(UI_Dialog& dialog, std::string_view id) {
  std::deque<UI_Node*> queue = {dialog.GetRootView().get()};
  for (; !queue.empty(); queue.pop_front()) {
    if (queue.front()->UI_GetNodeID().View() == id) return queue.front();
    for (const auto& child : ui::Children(*queue.front())) queue.push_back(child.get());
  }
  return nullptr;
}

std::string Sentence(const Outcome& outcome) {
  return std::string(nrvcore::utility::UTF16ToUTF8(Describe(outcome).View()).View());
}

}  // namespace

ScriptedPresenter::ScriptedPresenter(GestureScript gestureScript,
                                     std::function<void(const std::string&)> report)
    : script(std::move(gestureScript)), reportFunction(std::move(report)) {}

ScriptedPresenter::~ScriptedPresenter() = default;

void ScriptedPresenter::Present(UI_Dialog& dialog) {
  error.reset();
  for (const Step& step : script.Steps()) {
    try {
      PlayOrThrow(dialog, step);
    } catch (const ScriptError& unplayable) {
      error.emplace(unplayable);
      dialog.SetResponse(ui::kCancelResponse);
      return;
    }
  }
  if (dialog.GetResponse() != ui::kNoResponse) return;
  Report(script.Name() + ": the script ended with the dialog open; it was cancelled");
  dialog.DefaultCloseCancel();
}

void ScriptedPresenter::PlayOrThrow(UI_Dialog& dialog, const Step& step) const {
  const Outcome outcome = Play(dialog, step);
  if (outcome.IsRefused()) throw ScriptError(script.Name(), step.line, Sentence(outcome));
  if (!outcome.IsPulled()) return;
  Report(script.Name() + ":" + std::to_string(step.line) + ": " + Sentence(outcome));
}

Outcome ScriptedPresenter::Play(UI_Dialog& dialog, const Step& step) const {
  switch (step.verb) {
    case Verb::kEnter:
      return Enter(dialog, Control(dialog, step), nrvcore::utility::UTF8ToUTF16(step.text));
    case Verb::kClick:
      return Click(dialog, Control(dialog, step));
    case Verb::kKey:
      return Press(dialog, step.target == "Return" ? Key::kReturn : Key::kEscape);
    case Verb::kClose:
      return Close(dialog);
    case Verb::kResize:
      return Resize(dialog, {step.width, step.height});
  }
  return {};
}

UI_Node& ScriptedPresenter::Control(UI_Dialog& dialog, const Step& step) const {
  UI_Node* const node = FindControl(dialog, step.target);
  if (node != nullptr) return *node;
  throw ScriptError(script.Name(), step.line, "the dialog has no control \"" + step.target + "\"");
}

void ScriptedPresenter::Report(const std::string& message) const {
  if (reportFunction) reportFunction(message);
}

const std::optional<ScriptError>& ScriptedPresenter::Error() const {
  return error;
}

}  // namespace nrvui::gestures
