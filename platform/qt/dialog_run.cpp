#include "platform/qt/dialog_run.h"

#include <QScopedValueRollback>

namespace qtui {

using nrvui::gestures::Outcome;
using nrvui::ui::UI_Node;

namespace {

constexpr int kTypingPause = 300;  // ms

}  // namespace

DialogRun::DialogRun(nrvui::ui::UI_Dialog& modalDialog) : dialog(modalDialog) {
  typingPause.setSingleShot(true);
  typingPause.setInterval(kTypingPause);
  typingPause.callOnTimeout([this] { NotifyOfChange(); });
}

bool DialogRun::IsOver() const {
  return HasFailed() || dialog.GetResponse() != nrvui::ui::kNoResponse;
}

void DialogRun::RethrowFailure() const {
  if (failure != nullptr) std::rethrow_exception(failure);
}

void DialogRun::Guard(const std::function<void()>& work) {
  if (HasFailed()) return;
  try {
    work();
  } catch (...) {
    failure = std::current_exception();
    if (listener != nullptr) listener->RunFailed();
  }
}

Outcome DialogRun::Perform(const UI_Node* control, const std::function<Outcome()>& gesture) {
  Outcome outcome;
  ++gestureDepth;
  {
    const QScopedValueRollback touching(touched, control);
    Guard([&] { outcome = gesture(); });
  }
  --gestureDepth;
  NotifyOfChange();
  return outcome;
}

void DialogRun::NotifyOfChange() {
  if (gestureDepth > 0 || IsOver() || listener == nullptr) return;
  typingPause.stop();
  Guard([this] { listener->ValuesChanged(); });
}

Outcome DialogRun::Enter(UI_Node& field, const nrvcore::UTF16String& text) {
  return Perform(&field, [&] { return nrvui::gestures::Enter(dialog, field, text); });
}

void DialogRun::Click(UI_Node& control) {
  const bool isCancel = dialog.GetCancelButton() == &control;
  const bool isOk = dialog.GetOkButton() == &control;
  if (!isCancel && !CommitEdit() && isOk) return;
  Perform(&control, [&] { return nrvui::gestures::Click(dialog, control); });
}

void DialogRun::Press(nrvui::gestures::Key key) {
  if (key == nrvui::gestures::Key::kReturn && !CommitEdit()) return;
  Perform(nullptr, [&] { return nrvui::gestures::Press(dialog, key); });
}

void DialogRun::Close() {
  Perform(nullptr, [&] { return nrvui::gestures::Close(dialog); });
}

void DialogRun::Resize(QSizeF contentSize) {
  const nrvcore::geom::PointT<float> size = {static_cast<float>(contentSize.width()),
                                             static_cast<float>(contentSize.height())};
  Perform(nullptr, [&] { return nrvui::gestures::Resize(dialog, size); });
}

void DialogRun::NoteEdit(Editor& edited) {
  if (editor != &edited) CommitEdit();
  editor = &edited;
  typingPause.start();
}

bool DialogRun::CommitEdit() {
  return editor == nullptr || editor->Commit();
}

std::optional<PendingEntry> DialogRun::Pending() const {
  return editor != nullptr ? editor->Pending() : std::nullopt;
}

}  // namespace qtui
