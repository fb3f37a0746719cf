#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/nrvui/dialog_presenter.h"
#include "platform/nrvui/gesture_script.h"
#include "platform/nrvui/outcome.h"
#include "platform/nrvui/ui_dialog.h"

namespace nrvui::gestures {

/// One run of a script on a dialog. It defines, for every presenter, which control a line refers
/// to, what stops the run and what is reported.
class NRV_EXPORT ScriptRun {
 public:
  /// All must outlive the run. `report` may be empty.
  ScriptRun(const GestureScript& gestureScript, ui::UI_Dialog& playedDialog,
            const std::function<void(const std::string&)>& report);

  /// Calls `play` for each step. Reports clamped values; cancels a dialog that is still open at the
  /// end. A nrvcore::FileError from `play`, or a refused gesture, stops the run and cancels the
  /// dialog; returns that error.
  std::optional<nrvcore::FileError> Play(const std::function<Outcome(const Step&)>& play) const;

  /// Performs the step's gesture on the nodes.
  Outcome Perform(const Step& step) const;

  /// Throws nrvcore::FileError when the dialog has no such control.
  ui::UI_Node& Control(const Step& step) const;

  /// The step's text as the user would type it: a script has '.' as the decimal sign of numbers in
  /// every language.
  static nrvcore::UTF16String Typed(const Step& step, const ui::UI_Node& field);

 private:
  void Note(const Step& step, const Outcome& outcome) const;
  void Report(const std::string& message) const;

  const GestureScript& script;
  ui::UI_Dialog& dialog;
  const std::function<void(const std::string&)>& reportFunction;
};

/// Plays a gesture script from its start on every dialog. A line that cannot be played stops the
/// run and cancels the dialog; the end of the script cancels a dialog that is still open.
class NRV_EXPORT ScriptedPresenter final : public ui::DialogPresenter {
 public:
  /// `report` receives, in UTF-8 with file and line, what a window would show: clamped values, and
  /// a dialog that was left open.
  explicit ScriptedPresenter(GestureScript gestureScript,
                             std::function<void(const std::string&)> report = {});

  void Present(ui::UI_Dialog& dialog) override;

  /// The error that stopped the last run.
  const std::optional<nrvcore::FileError>& Error() const { return error; }

 private:
  GestureScript script;
  std::function<void(const std::string&)> reportFunction;
  std::optional<nrvcore::FileError> error;
};

}  // namespace nrvui::gestures
