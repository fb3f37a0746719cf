#pragma once

#include <QLabel>
#include <QWidget>
#include <utility>
#include <vector>

namespace qtui {

/// Where a dialog speaks to the person: what a field takes while they are in it, and what was
/// wrong with an entry until that field has a good one. It keeps room for two lines, so that a
/// message does not move the controls.
class MessageLine final : public QWidget {
 public:
  explicit MessageLine(QWidget& parent);

  /// Shown while there is no problem.
  void SetHint(const QString& text);
  /// Shown before all others; replaces the owner's former problem.
  void SetProblem(const void* owner, const QString& text);
  void ClearProblem(const void* owner);
  /// What is to be read now.
  QString Text() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Show();
  void Arrange();

  QLabel& icon;
  QLabel& label;
  QString hint;
  std::vector<std::pair<const void*, QString>> problems;  // the last one is shown
};

}  // namespace qtui
