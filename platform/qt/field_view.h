#pragma once

#include <functional>

#include "platform/nrvui/ui_edits.h"
#include "platform/qt/dialog_run.h"
#include "platform/qt/message_line.h"
#include "platform/qt/node_view.h"
#include "platform/qt/number_field.h"
#include "platform/qt/text_field.h"

namespace qtui {

/// A field that can be edited, by keys or by assistive technology. The text reaches the node when
/// the field is left, Return is pressed or something is clicked; until then the field shows the
/// text, afterwards what the node made of it. A text that was not changed is not entered.
///
/// A field has at most one problem, which is shown with a mark. A problem of an entry (refused or
/// clamped) ends when the field is edited, when its value or bounds change, and when the user comes
/// back to it and leaves it as it is. A value outside the bounds, which only code can set, is a
/// problem as long as it stays.
class FieldView : public NodeView, public Editor, public FieldListener {
 public:
  FieldView(DialogRun& modalRun, MessageLine& messageLine, nrvui::controls::UI_TextEdit& shown,
            TextField& textField);
  ~FieldView() override;

  QWidget* Widget() const override { return &edit; }
  void Follow() override;
  void SetName(const QString& spokenName) override;
  QString Description() const override;
  QString Hint() const override;

  bool Commit() override;
  std::optional<PendingEntry> Pending() const override { return std::nullopt; }
  void FieldLeft() override;

  /// Shows the node's value and what was wrong with an entry that led to it. False when the user
  /// has to look at the result.
  bool ShowEntry(const nrvui::gestures::Outcome& outcome);
  /// Shows a problem that another view of the same node had.
  void ShowProblem(const QString& text);

 protected:
  using ProblemText = std::function<QString()>;

  /// What may be entered, for the person; empty when anything may.
  virtual QString Range() const { return {}; }
  /// Localises to what the field takes: %1 is its name, %2 its range.
  virtual const char* HintKey() const { return "$$$/nrvui/Field/Hint=%1: %2"; }
  /// What is wrong with the node's value; null when nothing is. `origin` is the caption of the
  /// control whose gesture led to the value, empty for another origin.
  virtual ProblemText ValueProblem(const QString& origin) const;
  /// The widget has another text.
  virtual void TextChanged() {}
  /// False when the person must look at what became of it.
  bool Enter(const nrvcore::UTF16String& text);
  bool IsEdited() const { return edit.isModified(); }
  QString Text() const { return edit.text(); }
  const QString& Name() const { return name; }

 private:
  void Edited();
  void ShowValue();
  void JudgeValue();
  void SetProblem(ProblemText text);
  QString EntryProblem(const QString& reason) const;

  DialogRun& run;
  MessageLine& messages;
  nrvui::controls::UI_TextEdit& field;
  TextField& edit;
  QString shownValue;
  QString shownRange;
  QString origin;       // of the value, for ValueProblem
  ProblemText problem;  // composed anew when the name changes; null when there is none
  QString name;
  bool isShowing = false;
};

/// A number with its unit and bounds.
class NumberFieldView final : public FieldView {
 public:
  NumberFieldView(DialogRun& modalRun, MessageLine& messageLine,
                  nrvui::controls::UI_NumberEdit& shown, NumberField& newWidget);
  ~NumberFieldView() override;

  QWidget* Widget() const override { return &widget; }
  void Follow() override;
  void SetMnemonic(const QKeySequence& keys) override { widget.SetMnemonic(keys); }
  std::optional<PendingEntry> Pending() const override;
  /// By so many of the field's unit, as far as the bounds allow.
  void StepAsked(int count) override;
  void NumberAsked(double value) override;

 protected:
  QString Range() const override;
  ProblemText ValueProblem(const QString& origin) const override;
  const char* HintKey() const override;
  void TextChanged() override;

 private:
  nrvui::controls::UI_NumberEdit& number;
  NumberField& widget;
};

}  // namespace qtui
