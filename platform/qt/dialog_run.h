#pragma once

#include <QSizeF>
#include <QTimer>
#include <exception>
#include <functional>
#include <optional>
#include <utility>

#include "platform/nrvui/gesture.h"
#include "platform/qt/pending_entry.h"

namespace qtui {

/// A field that can be edited.
class Editor {
 public:
  /// Ends the edit. False when the result needs the user's attention before anything else happens.
  virtual bool Commit() = 0;
  /// Nothing unless the field has been edited to a number that it accepts without a message.
  virtual std::optional<PendingEntry> Pending() const = 0;

 protected:
  ~Editor() = default;
};

/// One modal run of a dialog: turns what a person does to widgets into gestures, and keeps
/// exceptions, which handlers may throw, out of Qt.
class DialogRun {
 public:
  explicit DialogRun(nrvui::ui::UI_Dialog& modalDialog);
  DialogRun(const DialogRun&) = delete;
  DialogRun& operator=(const DialogRun&) = delete;

  nrvui::ui::UI_Dialog& Dialog() const { return dialog; }
  /// Whether the dialog has a response or something threw.
  bool IsOver() const;
  /// `over` is called when the run ends because something threw; a response is seen at the dialog
  /// itself.
  void WhenOver(std::function<void()> over) { whenOver = std::move(over); }
  bool HasFailed() const { return failure != nullptr; }
  void RethrowFailure() const;

  /// Does the work; what it throws ends the run.
  void Guard(const std::function<void()>& work);

  /// Whether a gesture is going on. Its handler may run an event loop of its own, in which the
  /// widgets of this run must last.
  bool IsInGesture() const { return gestureDepth > 0; }
  /// `work` is called once, when the gesture that is going on has ended.
  void AfterGesture(std::function<void()> work) { afterGesture = std::move(work); }

  /// Performs a gesture on `control`, null for one on the whole dialog. A default outcome when a
  /// handler throws.
  nrvui::gestures::Outcome Perform(const nrvui::ui::UI_Node* control,
                                   const std::function<nrvui::gestures::Outcome()>& gesture);
  nrvui::gestures::Outcome Enter(nrvui::ui::UI_Node& field, const nrvcore::UTF16String& text);
  /// Ends the edit that is going on, except before the Cancel button. The OK button waits when the
  /// person must see first what became of their entry.
  void Click(nrvui::ui::UI_Node& control);
  /// Return ends the edit and waits in the same way.
  void Press(nrvui::gestures::Key key);
  void Close();
  void Resize(QSizeF contentSize);

  /// The control whose gesture is being performed, while its handlers run; null otherwise.
  const nrvui::ui::UI_Node* Touched() const { return touched; }

  /// `hook` is called after each gesture that leaves the dialog open, when its handlers are done,
  /// and 300 ms after the last edit of a field's text. An exception of the hook ends the run.
  void WhenChanged(std::function<void()> hook) { whenChanged = std::move(hook); }

  /// The text of a field was edited and is not in its node yet. The run keeps one such field: an
  /// edit that another field has pending is entered first.
  void NoteEdit(Editor& edited);
  void ForgetEditor(const Editor* gone) {
    if (editor == gone) editor = nullptr;
  }
  bool CommitEdit();
  std::optional<PendingEntry> Pending() const;

 private:
  void TellOfChange();

  nrvui::ui::UI_Dialog& dialog;
  const bool isShared;  // others hold references, so that they can also all let go
  Editor* editor = nullptr;
  int gestureDepth = 0;
  const nrvui::ui::UI_Node* touched = nullptr;
  QTimer typingPause;
  std::function<void()> afterGesture;
  std::function<void()> whenOver;
  std::function<void()> whenChanged;
  std::exception_ptr failure;
};

}  // namespace qtui
