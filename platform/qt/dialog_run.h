#pragma once

#include <QSizeF>
#include <QTimer>
#include <exception>
#include <functional>
#include <optional>

#include "platform/nrvui/gesture.h"
#include "platform/qt/dialog_listener.h"

namespace qtui {

/// A field that can be edited.
class Editor {
 public:
  /// Ends the edit and enters its text. False when the user has to look at the result before
  /// anything else happens.
  virtual bool Commit() = 0;
  /// Nothing unless the field has been edited to a number within its bounds.
  virtual std::optional<PendingEntry> Pending() const = 0;

 protected:
  ~Editor() = default;
};

/// One modal run of a dialog. It turns input to widgets into gestures, and keeps exceptions of the
/// dialog's handlers out of Qt's event loop: the first one ends the run and is rethrown at its end.
/// User-interface thread only.
class DialogRun {
 public:
  class Listener {
   public:
    /// Something threw; the run is over.
    virtual void RunFailed() = 0;
    /// The dialog is still open after a gesture, or 300 ms have passed since the last edit of a
    /// field's text. An exception ends the run.
    virtual void ValuesChanged() = 0;

   protected:
    ~Listener() = default;
  };

  /// The dialog must outlive the run.
  explicit DialogRun(nrvui::ui::UI_Dialog& modalDialog);
  DialogRun(const DialogRun&) = delete;
  DialogRun& operator=(const DialogRun&) = delete;

  nrvui::ui::UI_Dialog& Dialog() const { return dialog; }
  /// Null removes the listener, which the run does not own.
  void SetListener(Listener* newListener) { listener = newListener; }
  /// Whether the dialog has a response or something threw.
  bool IsOver() const;
  bool HasFailed() const { return failure != nullptr; }
  void RethrowFailure() const;

  /// Calls `work`; an exception ends the run. Does nothing after a failure.
  void Guard(const std::function<void()>& work);

  /// Performs a gesture on `control`, null for a gesture on the whole dialog. Returns its outcome,
  /// a default one when a handler throws.
  nrvui::gestures::Outcome Perform(const nrvui::ui::UI_Node* control,
                                   const std::function<nrvui::gestures::Outcome()>& gesture);
  nrvui::gestures::Outcome Enter(nrvui::ui::UI_Node& field, const nrvcore::UTF16String& text);
  /// Commits a pending edit first, except for the Cancel button. The OK button does nothing when
  /// the user has to look at the result of that edit.
  void Click(nrvui::ui::UI_Node& control);
  /// Return commits a pending edit first, like the OK button.
  void Press(nrvui::gestures::Key key);
  void Close();
  /// In points.
  void Resize(QSizeF contentSize);

  /// The control of the gesture that is being performed; null otherwise.
  const nrvui::ui::UI_Node* Touched() const { return touched; }

  /// To be called when the text of a field was edited and is not in its node yet. The run keeps one
  /// such field: a pending edit of another field is committed first.
  void NoteEdit(Editor& edited);
  /// To be called when the field's edit has ended or the field is destroyed.
  void ForgetEditor(const Editor& ended) {
    if (editor == &ended) editor = nullptr;
  }
  /// False when the user has to look at the result.
  bool CommitEdit();
  std::optional<PendingEntry> Pending() const;

 private:
  void NotifyOfChange();

  nrvui::ui::UI_Dialog& dialog;
  Listener* listener = nullptr;
  Editor* editor = nullptr;
  int gestureDepth = 0;  // a handler can run an event loop, which can perform another gesture
  const nrvui::ui::UI_Node* touched = nullptr;
  QTimer typingPause;
  std::exception_ptr failure;
};

}  // namespace qtui
