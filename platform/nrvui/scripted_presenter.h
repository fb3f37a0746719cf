#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/nrvui/dialog_presenter.h"
#include "platform/nrvui/gesture_script.h"
#include "platform/nrvui/outcome.h"
#include "platform/nrvui/ui_dialog.h"

namespace nrvui::gestures {

/// One playing of a script on a dialog, the same for all who play: which control a line means,
/// what stops the run and what is reported.
class NRV_EXPORT ScriptRun {
 public:
  /// All must outlive the run. `report` may be empty.
  ScriptRun(const GestureScript& gestureScript, ui::UI_Dialog& playedDialog,
            const std::function<void(const std::string&)>& report);

  /// Plays the whole script, each step by `play`. Reports values that were pulled; cancels a dialog
  /// that is left open. A ScriptError of `play`, or a gesture that was refused, stops the run,
  /// cancels the dialog and is the answer.
  std::optional<ScriptError> Play(const std::function<Outcome(const Step&)>& play) const;

  /// The gesture that the step means, without a window.
  Outcome Perform(const Step& step) const;

  /// Throws ScriptError when the dialog has no such control.
  ui::UI_Node& Control(const Step& step) const;

  /// What a person would type for the step's text: in numbers of a script '.' is the decimal sign,
  /// whatever the language.
  static nrvcore::UTF16String Typed(const Step& step, const ui::UI_Node& field);

 private:
  void Note(const Step& step, const Outcome& outcome) const;
  void Report(const std::string& message) const;

  const GestureScript& script;
  ui::UI_Dialog& dialog;
  const std::function<void(const std::string&)>& reportFunction;
};

/// Plays a gesture script, from its start, on every dialog that it is given. A line that cannot be
/// played stops the run and cancels the dialog; a script that ends while the dialog is open
/// cancels it too.
class NRV_EXPORT ScriptedPresenter final : public ui::DialogPresenter {
 public:
  /// `report` gets, in UTF-8 with file and line, what a person would be told: values that were
  /// pulled, and a dialog that the script left open.
  explicit ScriptedPresenter(GestureScript gestureScript,
                             std::function<void(const std::string&)> report = {});

  void Present(ui::UI_Dialog& dialog) override;

  /// What stopped the last run, if anything did.
  const std::optional<ScriptError>& Error() const { return error; }

 private:
  GestureScript script;
  std::function<void(const std::string&)> reportFunction;
  std::optional<ScriptError> error;
};

}  // namespace nrvui::gestures
