#pragma once

#include <QImage>
#include <QRect>
#include <functional>
#include <optional>
#include <string>

#include "platform/nrvui/dialog_presenter.h"
#include "platform/nrvui/gesture_script.h"
#include "platform/qt/message_line.h"

class QWidget;

namespace qtui {

/// Shows dialogs as windows, application-modal, over the active window if there is one. The
/// QApplication must be there. What a handler throws closes the window and leaves Present.
class QtPresenter final : public nrvui::ui::DialogPresenter {
 public:
  /// Throws std::logic_error without a QApplication.
  QtPresenter();
  ~QtPresenter();

  void Present(nrvui::ui::UI_Dialog& dialog) override;

  /// Every dialog is then played, by mouse and key events on its window, as the scripted presenter
  /// would play it; `report` gets the same texts.
  void PlayScript(nrvui::gestures::GestureScript gestureScript,
                  std::function<void(const std::string&)> report = {});
  /// What stopped the script in the last dialog, if anything did.
  const std::optional<nrvui::gestures::ScriptError>& Error() const { return error; }

  /// Every dialog then leaves a picture: as it is when it opens, or after the last gesture of a
  /// script that left it open.
  void TakeScreenshots() { takesScreenshots = true; }
  /// Of the last dialog; null when it was closed before it showed.
  const QImage& Screenshot() const { return screenshot; }

  /// `hook` is called for every dialog before its window is made.
  void BeforeShown(std::function<void(nrvui::ui::UI_Dialog& dialog)> hook) {
    opening = std::move(hook);
  }
  /// `hook` is called for every dialog, from its event loop, after its first paint.
  void WhenPainted(std::function<void(QWidget& window)> hook) { paintedHook = std::move(hook); }

  using ChangedHook = std::function<ReadOut(const nrvui::ui::UI_Dialog&)>;
  /// `hook` is called for every dialog when it opens and after each gesture that leaves it open;
  /// what it answers is said in the dialog's message line.
  void WhenChanged(ChangedHook hook) { changedHook = std::move(hook); }

  /// A rectangle of the screen that dialogs open beside, where there is room, if the toolkit places
  /// them; an empty one means nothing.
  void OpenBeside(const QRect& rect) { beside = rect; }

 private:
  std::optional<nrvui::gestures::GestureScript> script;
  std::function<void(const std::string&)> reportFunction;
  std::optional<nrvui::gestures::ScriptError> error;
  bool takesScreenshots = false;
  QImage screenshot;
  std::function<void(nrvui::ui::UI_Dialog&)> opening;
  std::function<void(QWidget&)> paintedHook;
  ChangedHook changedHook;
  QRect beside;
};

}  // namespace qtui
