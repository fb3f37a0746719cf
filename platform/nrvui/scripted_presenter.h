#pragma once

#include <functional>
#include <optional>

#include "platform/nrvui/dialog_presenter.h"
#include "platform/nrvui/gesture_script.h"

namespace nrvui::gestures {

/// Plays a gesture script, from its start, on every dialog that it is given. A line that cannot be
/// played stops the run and cancels the dialog; a script that ends while the dialog is open
/// cancels it too.
class NRV_EXPORT ScriptedPresenter final : public ui::DialogPresenter {
 public:
  /// `report` hears, in UTF-8 with file and line, what the person should know: values that were
  /// pulled, and a dialog that the script left open.
  explicit ScriptedPresenter(GestureScript gestureScript,
                             std::function<void(const std::string&)> report = {});
  ~ScriptedPresenter();

  void Present(ui::UI_Dialog& dialog) override;

  /// What stopped the last run, if anything did.
  const std::optional<ScriptError>& Error() const;

 private:
  GestureScript script;
  std::function<void(const std::string&)> reportFunction;
  std::optional<ScriptError> error;
};

}  // namespace nrvui::gestures
