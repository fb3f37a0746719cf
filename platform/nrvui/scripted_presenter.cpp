#include "platform/nrvui/scripted_presenter.h"

#include <utility>

#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/gesture.h"
#include "platform/nrvui/script_run.h"

namespace nrvui::gestures {

namespace {

Outcome Play(ui::UI_Dialog& dialog, const ScriptRun& run, const Step& step) {
  switch (step.verb) {
    case Verb::kEnter:
      return Enter(dialog, run.Control(step), nrvcore::utility::UTF8ToUTF16(step.text));
    case Verb::kClick:
      return Click(dialog, run.Control(step));
    case Verb::kKey:
      return Press(dialog, step.target == "Return" ? Key::kReturn : Key::kEscape);
    case Verb::kClose:
      return Close(dialog);
    case Verb::kResize:
      return Resize(dialog, {step.width, step.height});
  }
  return {};
}

}  // namespace

ScriptedPresenter::ScriptedPresenter(GestureScript gestureScript,
                                     std::function<void(const std::string&)> report)
    : script(std::move(gestureScript)), reportFunction(std::move(report)) {}

ScriptedPresenter::~ScriptedPresenter() = default;

void ScriptedPresenter::Present(ui::UI_Dialog& dialog) {
  error.reset();
  const ScriptRun run(script, dialog, reportFunction);
  error = run.Play([&](const Step& step) { return Play(dialog, run, step); });
}

const std::optional<ScriptError>& ScriptedPresenter::Error() const {
  return error;
}

}  // namespace nrvui::gestures
