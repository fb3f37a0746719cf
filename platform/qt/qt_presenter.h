#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/nrvui/dialog_presenter.h"
#include "platform/nrvui/gesture_script.h"

class QImage;
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
  /// would play it; `report` hears the same.
  void PlayScript(nrvui::gestures::GestureScript gestureScript,
                  std::function<void(const std::string&)> report = {});
  /// What stopped the script in the last dialog, if anything did.
  const std::optional<nrvui::gestures::ScriptError>& Error() const { return error; }

  /// Keeps a picture of every dialog in a PNG file: as it is when it opens, or after the last
  /// gesture of a script that left it open. Empty means no picture.
  void SetScreenshot(const std::string& path) { screenshotPath = path; }
  /// Why the last dialog's picture could not be written; empty when it could.
  const std::string& ScreenshotProblem() const { return screenshotProblem; }

  /// `hook` is called for every dialog, from its event loop, after its first paint.
  void WhenPainted(std::function<void(QWidget& window)> hook) { paintedHook = std::move(hook); }

 private:
  void SaveScreenshot(const QImage& picture);

  std::optional<nrvui::gestures::GestureScript> script;
  std::function<void(const std::string&)> reportFunction;
  std::optional<nrvui::gestures::ScriptError> error;
  std::string screenshotPath;
  std::string screenshotProblem;
  std::function<void(QWidget&)> paintedHook;
};

}  // namespace qtui
