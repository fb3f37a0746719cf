#pragma once

#include <QAbstractButton>
#include <QObject>
#include <functional>

/// Compares while the user holds a button or a key. The key works in every window of the
/// application.
class HoldToCompare final : public QObject {
 public:
  /// `compare` is called with true when the user begins to hold either and with false when both are
  /// released. The button must outlive this.
  HoldToCompare(QAbstractButton& button, Qt::Key key, std::function<void(bool)> compare);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Hold(bool isHeld);

  QAbstractButton& button;
  const Qt::Key key;
  const std::function<void(bool)> compare;
  bool isKeyHeld = false;
};
