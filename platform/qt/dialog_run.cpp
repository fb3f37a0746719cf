#include "platform/qt/dialog_run.h"

namespace qtui {

using nrvui::gestures::Outcome;
using nrvui::ui::UI_Node;

DialogRun::DialogRun(nrvui::ui::UI_Dialog& modalDialog)
    : dialog(modalDialog), isShared(modalDialog.UI_GetReferenceCount() > 1) {}

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
    const bool isAbandoned = isShared && dialog.UI_GetReferenceCount() == 1;
    if (isAbandoned && !IsOver()) dialog.SetResponse(nrvui::ui::kCancelResponse);
  } catch (...) {
    failure = std::current_exception();
    if (whenOver) whenOver();
  }
}

Outcome DialogRun::Do(const std::function<Outcome()>& gesture) {
  Outcome outcome;
  ++gestureDepth;
  Guard([&] { outcome = gesture(); });
  --gestureDepth;
  lastOutcome = outcome;
  if (!IsInGesture() && afterGesture) std::exchange(afterGesture, {})();
  if (!IsInGesture() && !IsOver() && whenChanged) Guard(whenChanged);
  return outcome;
}

Outcome DialogRun::Enter(UI_Node& field, const nrvcore::UTF16String& text) {
  return Do([&] { return nrvui::gestures::Enter(dialog, field, text); });
}

void DialogRun::Click(UI_Node& control) {
  const bool isCancel = dialog.GetCancelButton() == &control;
  const bool isOk = dialog.GetOkButton() == &control;
  if (!isCancel && !CommitEdit() && isOk) return;
  Do([&] { return nrvui::gestures::Click(dialog, control); });
}

void DialogRun::Press(nrvui::gestures::Key key) {
  if (key == nrvui::gestures::Key::kReturn && !CommitEdit()) return;
  Do([&] { return nrvui::gestures::Press(dialog, key); });
}

void DialogRun::Close() {
  Do([&] { return nrvui::gestures::Close(dialog); });
}

void DialogRun::Resize(QSizeF contentSize) {
  const nrvcore::geom::PointT<float> size = {static_cast<float>(contentSize.width()),
                                             static_cast<float>(contentSize.height())};
  Do([&] { return nrvui::gestures::Resize(dialog, size); });
}

bool DialogRun::CommitEdit() {
  return editor == nullptr || editor->Commit();
}

std::optional<Outcome> DialogRun::TakeOutcome() {
  return std::exchange(lastOutcome, std::nullopt);
}

}  // namespace qtui
