#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/nrvui/dialog_presenter.h"
#include "platform/nrvui/gesture_script.h"
#include "platform/nrvui/outcome.h"
#include "platform/nrvui/ui_dialog.h"

namespace nrvui::gestures {

/// One run of a script in a dialog, for presenters. It finds the controls, decides what stops the
/// run, and reports.
class NRV_EXPORT ScriptRun {
 public:
  /// All arguments must outlive the run. `report` may be empty.
  ScriptRun(const GestureScript& gestureScript, ui::UI_Dialog& playedDialog,
            const std::function<void(const std::string&)>& report);

  /// Calls `play` for each step. Reports clamped values. Cancels and reports a dialog that is still
  /// open at the end. A FileError of `play` or a refused gesture stops the run, cancels the dialog
  /// and is returned.
  std::optional<nrvcore::FileError> Play(const std::function<Outcome(const Step&)>& play) const;

  /// Performs the step's gesture.
  Outcome Perform(const Step& step) const;

  /// The control of a step that has one. Throws nrvcore::FileError when the dialog lacks it.
  ui::UI_Node& Control(const Step& step) const;

 private:
  /// Reports a clamped value. Throws nrvcore::FileError for a refused gesture.
  void Check(const Step& step, const Outcome& outcome) const;
  void Report(const std::string& message) const;

  const GestureScript& script;
  ui::UI_Dialog& dialog;
  const std::function<void(const std::string&)>& reportFunction;
};

/// Plays the whole script in each dialog. A line that cannot be played stops the run and cancels
/// the dialog; the end of the script cancels a dialog that is still open.
class NRV_EXPORT ScriptedPresenter final : public ui::DialogPresenter {
 public:
  /// `report` receives lines in UTF-8 with file and line number: for clamped values, and for a
  /// dialog that the script left open.
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
