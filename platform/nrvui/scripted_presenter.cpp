#include "platform/nrvui/scripted_presenter.h"

#include <algorithm>
#include <deque>
#include <utility>

#include "platform/nrvcore/localizer.h"
#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/gesture.h"
#include "platform/nrvui/ui_edits.h"

namespace nrvui::gestures {

using nrvcore::config::Message;
using ui::UI_Node;

namespace {

/// The first match in breadth-first order, as in the lookup of the module's dialogs.
UI_Node* FindControl(const ui::UI_Dialog& dialog, std::string_view id) {
  std::deque<UI_Node*> queue = {dialog.GetRootView().get()};
  for (; !queue.empty(); queue.pop_front()) {
    if (queue.front()->UI_GetNodeID().View() == id) return queue.front();
    for (const auto& child : ui::Children(*queue.front())) queue.push_back(child.get());
  }
  return nullptr;
}

/// The step's text as the user would type it: scripts have '.' as the decimal sign of numbers,
/// users the sign of their language.
nrvcore::UTF16String TypedText(const Step& step, const UI_Node& field) {
  std::u16string text(nrvcore::utility::UTF8ToUTF16(step.text).View());
  if (dynamic_cast<const controls::UI_NumberEdit*>(&field) != nullptr) {
    std::replace(text.begin(), text.end(), u'.',
                 nrvcore::config::Localizer::Get().GetDecimalSign());
  }
  return nrvcore::UTF16String(text);
}

std::string Sentence(const Outcome& outcome) {
  return nrvcore::utility::UTF16ToUTF8(Describe(outcome).View());
}

}  // namespace

ScriptRun::ScriptRun(const GestureScript& gestureScript, ui::UI_Dialog& playedDialog,
                     const std::function<void(const std::string&)>& report)
    : script(gestureScript), dialog(playedDialog), reportFunction(report) {}

std::optional<nrvcore::FileError> ScriptRun::Play(
    const std::function<Outcome(const Step&)>& play) const {
  for (const Step& step : script.Steps()) {
    try {
      Check(step, play(step));
    } catch (const nrvcore::FileError& unplayable) {
      dialog.SetResponse(ui::kCancelResponse);
      return unplayable;
    }
  }
  if (dialog.GetResponse() != ui::kNoResponse) return {};
  Report(script.Name() + ": " +
         Message(
             "$$$/nrvui/Script/StaysOpen=the script ended with the dialog open; it was cancelled"));
  dialog.DefaultCloseCancel();
  return {};
}

Outcome ScriptRun::Perform(const Step& step) const {
  switch (step.verb) {
    case Verb::kEnter: {
      UI_Node& field = Control(step);
      return Enter(dialog, field, TypedText(step, field));
    }
    case Verb::kClick:
      return Click(dialog, Control(step));
    case Verb::kKey:
      return Press(dialog, step.target == "Return" ? Key::kReturn : Key::kEscape);
    case Verb::kClose:
      return Close(dialog);
    case Verb::kResize:
      return Resize(dialog, {step.width, step.height});
  }
  return {};
}

UI_Node& ScriptRun::Control(const Step& step) const {
  UI_Node* const node = FindControl(dialog, step.target);
  if (node != nullptr) return *node;
  throw nrvcore::FileError(
      script.Name(), step.line,
      Message("$$$/nrvui/Script/NoControl=the dialog has no control \"%1\"", {step.target}));
}

void ScriptRun::Check(const Step& step, const Outcome& outcome) const {
  if (outcome.IsRefused()) throw nrvcore::FileError(script.Name(), step.line, Sentence(outcome));
  if (!outcome.IsClamped()) return;
  Report(script.Name() + ":" + std::to_string(step.line) + ": " + Sentence(outcome));
}

void ScriptRun::Report(const std::string& message) const {
  if (reportFunction) reportFunction(message);
}

ScriptedPresenter::ScriptedPresenter(GestureScript gestureScript,
                                     std::function<void(const std::string&)> report)
    : script(std::move(gestureScript)), reportFunction(std::move(report)) {}

void ScriptedPresenter::Present(ui::UI_Dialog& dialog) {
  error.reset();
  const ScriptRun run(script, dialog, reportFunction);
  error = run.Play([&](const Step& step) { return run.Perform(step); });
}

}  // namespace nrvui::gestures
