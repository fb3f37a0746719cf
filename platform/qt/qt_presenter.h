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

/// Shows dialogs as windows, by default application-modal. Used on the user-interface thread. An
/// exception of a handler or listener closes the window and leaves Present.
class QtPresenter final : public nrvui::ui::DialogPresenter {
 public:
  /// Dialogs open over `owner`, which must outlive them; null for the window that is active when
  /// one opens. Throws std::logic_error without a QApplication.
  explicit QtPresenter(QWidget* owner = nullptr);
  ~QtPresenter();

  void Present(nrvui::ui::UI_Dialog& dialog) override;

  /// Plays the script on each dialog after its first paint; the window shows the result of each
  /// gesture. Errors and the texts that `report` gets are those of the scripted presenter.
  void PlayScript(nrvui::gestures::GestureScript gestureScript,
                  std::function<void(const std::string&)> report = {});
  /// The error that stopped the script in the last dialog.
  const std::optional<nrvcore::FileError>& Error() const { return error; }

  /// Takes a screenshot of each dialog: when it opens, and after each gesture of a script that
  /// leaves it open. The last one is kept.
  void TakeScreenshots() { takesScreenshots = true; }
  /// Of the last dialog; null when it was closed before its first paint.
  const QImage& Screenshot() const { return screenshot; }

  /// The listener must outlive the presenter or be removed. Listeners are called in the order in
  /// which they were added; neither function may be called while a dialog is open.
  void AddListener(DialogListener& listener);
  void RemoveListener(DialogListener& listener);

  /// A rectangle of the screen. Dialogs without a position of their own open beside it if there is
  /// room. Empty for none.
  void OpenBeside(const QRect& rect) { beside = rect; }
  /// A position for the frames of these dialogs, which takes precedence over the rectangle.
  void OpenAt(const std::optional<QPoint>& framePosition) { position = framePosition; }
  /// Where the frame of the last dialog was when it closed.
  QPoint LastPosition() const { return lastPosition; }
  /// Whether the user had moved that dialog.
  bool WasMoved() const { return wasMoved; }

  /// Makes dialogs children of this window that do not block its input: the window itself disables
  /// what may not be used while one is open. It must outlive the dialogs. Null restores the
  /// default.
  void ShareInputWith(QWidget* window) { sharingWindow = window; }

 private:
  QWidget* const ownerWindow;
  std::optional<nrvui::gestures::GestureScript> script;
  std::function<void(const std::string&)> reportFunction;
  std::optional<nrvcore::FileError> error;
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
