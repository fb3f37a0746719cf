#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/nrvui/dialog_presenter.h"
#include "platform/nrvui/gesture_script.h"
#include "platform/qt/dialog_listener.h"

namespace qtui {

/// Shows dialogs as windows, by default application-modal over the active window if there is one.
/// The QApplication must exist. An exception of a handler closes the window and leaves Present.
class QtPresenter final : public nrvui::ui::DialogPresenter {
 public:
  /// Throws std::logic_error without a QApplication.
  QtPresenter();
  ~QtPresenter();

  void Present(nrvui::ui::UI_Dialog& dialog) override;

  /// Plays the script on each dialog after its first paint; the window shows the result of each
  /// gesture. Errors and the texts that `report` gets are those of the scripted presenter.
  void PlayScript(nrvui::gestures::GestureScript gestureScript,
                  std::function<void(const std::string&)> report = {});
  /// What stopped the script in the last dialog, if anything did.
  const std::optional<nrvui::gestures::ScriptError>& Error() const { return error; }

  /// Every dialog then leaves a picture: as it is when it opens, or after the last gesture of a
  /// script that left it open.
  void TakeScreenshots() { takesScreenshots = true; }
  /// Of the last dialog; null when it was closed before it showed.
  const QImage& Screenshot() const { return screenshot; }

  /// The listener must outlive the presenter or be removed. Listeners are called in the order in
  /// which they were added; neither function may be called while a dialog is open.
  void AddListener(DialogListener& listener);
  void RemoveListener(DialogListener& listener);

  /// A rectangle of the screen that dialogs open beside, where there is room, if the toolkit places
  /// them; an empty one means nothing.
  void OpenBeside(const QRect& rect) { beside = rect; }
  /// A place for the frames of these dialogs, which counts before the rectangle.
  void OpenAt(const std::optional<QPoint>& framePosition) { position = framePosition; }
  /// Where the frame of the last dialog was when it closed.
  QPoint LastPosition() const { return lastPosition; }
  /// Whether the user had moved that dialog.
  bool WasMoved() const { return wasMoved; }

  /// Dialogs belong to this window and block no input: the window itself disables what must not be
  /// used while one is open. The window must outlive the presenter's use. Null restores the
  /// default.
  void ShareInputWith(QWidget* window) { sharingWindow = window; }

 private:
  std::optional<nrvui::gestures::GestureScript> script;
  std::function<void(const std::string&)> reportFunction;
  std::optional<nrvui::gestures::ScriptError> error;
  bool takesScreenshots = false;
  QImage screenshot;
  std::vector<DialogListener*> listeners;
  QRect beside;
  std::optional<QPoint> position;
  QPoint lastPosition;
  bool wasMoved = false;
  QWidget* sharingWindow = nullptr;
};

}  // namespace qtui
