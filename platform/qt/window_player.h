#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/nrvui/scripted_presenter.h"
#include "platform/qt/dialog_window.h"

namespace qtui {

/// Plays a gesture script on a dialog's window with the events that a person's mouse and keyboard
/// would send. What a line means, what stops the run and what is reported is the same as for the
/// scripted presenter.
class WindowPlayer {
 public:
  /// All but the window, which may go with its parent, must outlive the player.
  WindowPlayer(const nrvui::gestures::GestureScript& gestureScript, DialogRun& modalRun,
               DialogWindow& dialogWindow, const std::function<void(const std::string&)>& report);

  /// Plays the whole script; what follows in the event loop comes after each step. `afterStep` is
  /// called after each step that leaves the dialog open. Answers what stopped the script, if
  /// anything did; what a handler throws passes through.
  std::optional<nrvui::gestures::ScriptError> Play(const std::function<void()>& afterStep);

 private:
  using Step = nrvui::gestures::Step;
  using Outcome = nrvui::gestures::Outcome;

  Outcome Play(const Step& step);
  void Enter(const Step& step);
  Outcome Resize(const Step& step);
  /// The node's widget if a person could get at it, else null.
  QWidget* Reachable(const nrvui::ui::UI_Node& node) const;
  void TypeKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {});
  void ClickAt(QWidget& widget);

  const nrvui::gestures::GestureScript& script;
  DialogRun& run;
  DialogWindow& window;
  nrvui::gestures::ScriptRun scriptRun;
};

}  // namespace qtui
