#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <utility>
#include <vector>

#include "platform/nrvui/ui_node.h"
#include "platform/qt/dialog_listener.h"

namespace qtui {

/// The dialog's messages: the summary of its values, the hint of the control that has the focus or
/// the pointer, and the problem of an entry. It reserves three lines, so that a message does not
/// move the controls. Screen readers announce warnings when the gesture that led to them has ended,
/// and a summary when it has not changed for a second.
class MessageLine final : public QWidget {
 public:
  explicit MessageLine(QWidget& parent);

  /// A summary that is not a warning is shown only while no field has a problem.
  void SetSummary(const Summary& text);
  /// The hint is shown below the summary while there is no warning.
  void SetHint(const QString& text);
  /// Shows the problem first; it replaces the field's former problem.
  void SetProblem(const nrvui::ui::UI_Node& field, const QString& text);
  void ClearProblem(const nrvui::ui::UI_Node& field);
  /// The text that is shown.
  QString Text() const;
  /// Whether the text shows a problem or a warning.
  bool IsWarning() const { return !problems.empty() || summary.isWarning; }

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Show();
  void Arrange();
  /// Announces the text in `delay` ms. Does not delay an announcement that is due at once (0 ms).
  void AnnounceAfter(int delay);
  void Announce();

  QLabel& icon;
  QLabel& label;
  Summary summary;
  QString hint;
  std::vector<std::pair<const nrvui::ui::UI_Node*, QString>> problems;  // the last one is shown
  QTimer pause;  // before the text is announced
  QString announcedProblem;
  QString announcedSummary;
};

}  // namespace qtui
