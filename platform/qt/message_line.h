#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <utility>
#include <vector>

#include "platform/nrvui/ui_node.h"

namespace qtui {

/// What follows from a dialog's present values, in one sentence that whoever opened it has made.
struct Summary {
  QString text;  // may be empty
  bool isWarning = false;
};

/// The dialog's messages: what follows from its present values, what the control is for that a
/// person is at, and what is wrong with an entry. It keeps room for three lines, so that a message
/// does not move the controls. Screen readers announce warnings when the gesture that led to them
/// has ended, and a new read-out after a second without another one.
class MessageLine final : public QWidget {
 public:
  using Problems = std::vector<std::pair<const nrvui::ui::UI_Node*, QString>>;

  explicit MessageLine(QWidget& parent);

  /// What follows from the dialog's present values. Without a warning it is shown only while no
  /// field has a problem.
  void SetSummary(const Summary& text);
  /// Shown below the read-out while there is no warning.
  void SetHint(const QString& text);
  /// Shown above all else; replaces the field's former problem.
  void SetProblem(const nrvui::ui::UI_Node& field, const QString& text);
  void ClearProblem(const nrvui::ui::UI_Node& field);
  const Problems& AllProblems() const { return problems; }
  /// What is to be read now.
  QString Text() const;
  /// Whether that is something that a person must see to.
  bool IsWarning() const { return !problems.empty() || summary.isWarning; }

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Show();
  void Arrange();
  /// In so many ms; an announcement that is due at once (0 ms) is not delayed again.
  void AnnounceAfter(int delay);
  void Announce();

  QLabel& icon;
  QLabel& label;
  Summary summary;
  QString hint;
  Problems problems;  // the last one is shown
  QTimer pause;       // before the text is announced
  QString announcedProblem;
  QString announcedSummary;
};

}  // namespace qtui
