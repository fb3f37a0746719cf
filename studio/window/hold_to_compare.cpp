#include "studio/window/hold_to_compare.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <utility>

HoldToCompare::HoldToCompare(QAbstractButton& heldButton, Qt::Key heldKey,
                             std::function<void(bool)> whenHeld)
    : button(heldButton), key(heldKey), compare(std::move(whenHeld)) {
  connect(&button, &QAbstractButton::pressed, this, [this] { compare(true); });
  connect(&button, &QAbstractButton::released, this, [this] { compare(isKeyHeld); });
  QCoreApplication::instance()->installEventFilter(this);
}

bool HoldToCompare::eventFilter(QObject*, QEvent* event) {
  // Another window that takes the focus also takes the release of the key.
  if (event->type() == QEvent::WindowDeactivate && isKeyHeld) Hold(false);
  const bool isShortcut = event->type() == QEvent::ShortcutOverride;
  const bool isPress = event->type() == QEvent::KeyPress;
  if (!isShortcut && !isPress && event->type() != QEvent::KeyRelease) return false;
  const auto& keyEvent = static_cast<const QKeyEvent&>(*event);
  if (keyEvent.key() != key) return false;
  // A modifier that is pressed after the key does not keep the release from ending the comparison.
  if ((isShortcut || isPress) && keyEvent.modifiers() != Qt::NoModifier) return false;
  if (isShortcut) {
    event->accept();  // the key then arrives as a press and a release instead of a shortcut
  } else if (!keyEvent.isAutoRepeat() && isPress != isKeyHeld && (!isPress || button.isEnabled())) {
    Hold(isPress);
  }
  return true;
}

void HoldToCompare::Hold(bool isHeld) {
  isKeyHeld = isHeld;
  compare(isKeyHeld || button.isDown());
}
