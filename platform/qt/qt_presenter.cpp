#include "platform/qt/qt_presenter.h"

#include <QApplication>
#include <QPointer>
#include <QScopeGuard>
#include <stdexcept>
#include <utility>

#include "platform/nrvui/scripted_presenter.h"
#include "platform/nrvui/ui_dialog.h"
#include "platform/qt/dialog_window.h"

namespace qtui {

using nrvui::gestures::Outcome;
using nrvui::gestures::ScriptRun;
using nrvui::gestures::Step;
using nrvui::gestures::Verb;

namespace {

/// The window that a dialog belongs to; null when there is none. Popup menus, which close, do not
/// count.
QWidget* CurrentWindow() {
  QWidget* window = QApplication::activeModalWidget();
  if (window == nullptr) window = QApplication::activeWindow();
  while (window != nullptr && (window->windowType() == Qt::Popup || !window->isVisible())) {
    QWidget* const owner = window->parentWidget();
    window = owner != nullptr ? owner->window() : nullptr;
  }
  return window;
}

/// Performs a script's step on the nodes. The window shows the result, as after the user's
/// gestures.
Outcome Perform(const Step& step, const ScriptRun& script, DialogRun& run, DialogWindow* window) {
  const bool hasControl = step.verb == Verb::kEnter || step.verb == Verb::kClick;
  nrvui::ui::UI_Node* const control = hasControl ? &script.Control(step) : nullptr;
  Outcome outcome = run.Perform(control, [&] { return script.Perform(step); });
  if (step.verb == Verb::kEnter && !run.IsOver()) window->Content().ShowEntry(*control, outcome);
  return outcome;
}

}  // namespace

QtPresenter::QtPresenter(QWidget* owner) : ownerWindow(owner) {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
    throw std::logic_error("windows need a QApplication");
  }
}

QtPresenter::~QtPresenter() = default;

void QtPresenter::PlayScript(nrvui::gestures::GestureScript gestureScript,
                             std::function<void(const std::string&)> report) {
  script = std::move(gestureScript);
  reportFunction = std::move(report);
}

void QtPresenter::AddListener(DialogListener& listener) {
  listeners.push_back(&listener);
}

void QtPresenter::RemoveListener(DialogListener& listener) {
  std::erase(listeners, &listener);
}

void QtPresenter::Present(nrvui::ui::UI_Dialog& dialog) {
  error.reset();
  screenshot = {};
  for (DialogListener* listener : listeners) listener->DialogOpening(dialog);
  DialogRun run(dialog);
  const QPointer<DialogWindow> window =
      sharingWindow != nullptr
          ? new DialogWindow(run, listeners, sharingWindow, Qt::NonModal)
          : new DialogWindow(run, listeners, ownerWindow != nullptr ? ownerWindow : CurrentWindow(),
                             Qt::ApplicationModal);
  const auto close = qScopeGuard([&] { delete window.data(); });  // null if its parent has gone
  const auto photograph = [&] {
    if (takesScreenshots && !run.IsOver()) screenshot = window->grab().toImage();
  };
  const auto playScript = [&] {
    photograph();
    for (DialogListener* listener : listeners) {
      if (!window.isNull()) listener->DialogPainted(*window);
    }
    if (!script || run.IsOver()) return;
    const ScriptRun scriptRun(*script, dialog, reportFunction);
    error = scriptRun.Play([&](const Step& step) {
      Outcome outcome = Perform(step, scriptRun, run, window);
      QCoreApplication::processEvents();
      run.RethrowFailure();
      photograph();
      return outcome;
    });
  };
  window->OpenBeside(beside);
  window->OpenAt(position);
  window->RunModal(playScript);
  if (!window.isNull()) {
    lastPosition = window->pos();
    wasMoved = window->WasMoved();
  }
  run.RethrowFailure();
}

}  // namespace qtui
