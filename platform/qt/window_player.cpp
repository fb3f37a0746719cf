#include "platform/qt/window_player.h"

#include <QApplication>
#include <QCheckBox>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QRadioButton>
#include <QWindow>

#include "platform/nrvcore/localizer.h"
#include "platform/nrvui/ui_edits.h"
#include "platform/qt/qt_text.h"

namespace qtui {

using nrvui::gestures::Outcome;
using nrvui::gestures::ScriptError;
using nrvui::gestures::Verb;
using nrvui::ui::UI_Node;

namespace {

constexpr int kActivationTimeout = 2000;  // ms

/// Where a person would click.
QPoint Target(const QWidget& widget) {
  if (qobject_cast<const QCheckBox*>(&widget) == nullptr &&
      qobject_cast<const QRadioButton*>(&widget) == nullptr) {
    return widget.rect().center();
  }
  const int inset = widget.height() / 2;
  return {widget.isRightToLeft() ? widget.width() - inset : inset, inset};
}

/// Whether a person could drag the edge of a window there, on any screen.
bool CanDrag(double length) {
  return length >= 0 && length <= 8192;
}

}  // namespace

WindowPlayer::WindowPlayer(const nrvui::gestures::GestureScript& gestureScript, DialogRun& modalRun,
                           DialogWindow& dialogWindow,
                           const std::function<void(const std::string&)>& report)
    : script(gestureScript),
      run(modalRun),
      window(dialogWindow),
      scriptRun(script, run.Dialog(), report) {}

std::optional<ScriptError> WindowPlayer::Play(const std::function<void()>& afterStep) {
  const QDeadlineTimer deadline(kActivationTimeout);
  while (!run.IsOver() && !window.isActiveWindow() && !deadline.hasExpired()) {
    QCoreApplication::processEvents();
  }
  return scriptRun.Play([&](const Step& step) {
    run.TakeOutcome();
    Outcome outcome = Play(step);
    QCoreApplication::processEvents();
    run.RethrowFailure();
    if (!run.IsOver()) afterStep();
    return outcome;
  });
}

Outcome WindowPlayer::Play(const Step& step) {
  switch (step.verb) {
    case Verb::kEnter:
      Enter(step);
      break;
    case Verb::kClick:
      if (QWidget* const widget = Reachable(scriptRun.Control(step))) ClickAt(*widget);
      break;
    case Verb::kKey:
      TypeKey(step.target == "Return" ? Qt::Key_Return : Qt::Key_Escape);
      break;
    case Verb::kClose:
      if (!run.IsOver()) window.close();
      break;
    case Verb::kResize:
      return Resize(step);
  }
  if (const auto taken = run.TakeOutcome()) return *taken;
  // The events met nothing; the toolkit knows the reason.
  const bool wasOver = run.IsOver();
  Outcome outcome;
  run.Guard([&] { outcome = scriptRun.Perform(step); });
  if (outcome.changed || run.IsOver() != wasOver)
    throw ScriptError(
        script.Name(), step.line,
        nrvcore::config::Message("$$$/nrvui/Script/NoNotice=the window took no notice"));
  return outcome;
}

void WindowPlayer::Enter(const Step& step) {
  UI_Node& node = scriptRun.Control(step);
  QWidget* const widget = Reachable(node);
  if (dynamic_cast<nrvui::controls::UI_TextEdit*>(&node) == nullptr || widget == nullptr) return;
  ClickAt(*widget);
  TypeKey(Qt::Key_A, Qt::ControlModifier);
  if (step.text.empty()) TypeKey(Qt::Key_Delete);
  for (const char32_t character : ToQString(scriptRun.Typed(step, node)).toUcs4()) {
    TypeKey(0, Qt::NoModifier, QString::fromUcs4(&character, 1));
  }
  TypeKey(Qt::Key_Tab);
  run.CommitEdit();  // where there is nothing else to go on to
}

Outcome WindowPlayer::Resize(const Step& step) {
  const QSizeF wanted(step.width, step.height);
  if (!run.IsOver() && CanDrag(step.width) && CanDrag(step.height)) {
    const QSize whole(static_cast<int>(step.width), static_cast<int>(step.height));
    window.resize(whole);
    const auto content = run.Dialog().GetContentSize();
    const auto taken = run.TakeOutcome();
    if (taken && whole == QSizeF(content.x, content.y).toSize()) return *taken;
  }
  // A window never becomes what its dialog refuses; the dialog says why.
  run.Resize(wanted);
  return run.TakeOutcome().value_or(Outcome());
}

QWidget* WindowPlayer::Reachable(const UI_Node& node) const {
  QWidget* const widget = run.IsOver() ? nullptr : window.Content().WidgetOf(node);
  return widget != nullptr && widget->isVisible() && widget->isEnabled() ? widget : nullptr;
}

void WindowPlayer::TypeKey(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    if (run.IsOver()) return;
    QKeyEvent event(type, key, modifiers, text);
    QCoreApplication::sendEvent(window.windowHandle(), &event);
  }
}

void WindowPlayer::ClickAt(QWidget& widget) {
  window.Content().Reveal(widget);
  const QPointF point = widget.mapTo(&window, Target(widget));
  const QPointF global = window.mapToGlobal(point);
  const auto send = [&](QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
    if (run.IsOver()) return;
    QMouseEvent event(type, point, point, global, button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(window.windowHandle(), &event);
  };
  send(QEvent::MouseMove, Qt::NoButton, Qt::NoButton);
  send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
  send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
}

}  // namespace qtui
