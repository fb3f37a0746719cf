#pragma once

#include <functional>

#include "platform/nrvui/ui_edits.h"
#include "platform/qt/dialog_run.h"
#include "platform/qt/message_line.h"
#include "platform/qt/node_view.h"
#include "platform/qt/number_field.h"
#include "platform/qt/text_field.h"

namespace qtui {

/// A field that can be edited with keys or by assistive technology. The text is entered in the node
/// when the field loses the focus, Return is pressed or a control is clicked; then the field shows
/// the node's value. A text that was not edited is not entered.
///
/// A field has at most one problem, which is shown in the message line and by a mark. The problem
/// of an entry that was refused or clamped ends when the field is edited, when its value or bounds
/// change, and when the user returns to the field and leaves it unedited. A value outside the
/// bounds, which only code can set, is a problem until it changes.
class FieldView : public NodeView, public Editor, public FieldListener {
 public:
  FieldView(DialogRun& modalRun, MessageLine& messageLine, nrvui::controls::UI_TextEdit& shown,
            TextField& textField);
  ~FieldView() override;

  QWidget* Widget() const override { return &edit; }
  void Sync() override;
  void SetName(const QString& spokenName) override;
  QString Description() const override;
  QString Hint() const override;

  bool Commit() override;
  std::optional<PendingEntry> Pending() const override { return std::nullopt; }
  void FieldLeft() override;

  /// Shows the node's value and what was wrong with an entry that led to it. False when the user
  /// has to look at the result.
  bool ShowEntry(const nrvui::gestures::Outcome& outcome);

 protected:
  using ProblemText = std::function<QString()>;

  /// A text for the range of valid entries; empty when every entry is valid.
  virtual QString Range() const { return {}; }
  /// The key of the hint; %1 is the field's name, %2 its range.
  virtual const char* HintKey() const { return "$$$/nrvui/Field/Hint=%1: %2"; }
  /// The problem of the node's value, null for none. `origin` is the caption of the control whose
  /// handler set the value, empty if there is none.
  virtual ProblemText ValueProblem(const QString& origin) const;
  /// Called when the widget's text has changed.
  virtual void TextChanged() {}
  /// False when the user has to look at the result.
  bool Enter(const nrvcore::UTF16String& text);
  bool IsEdited() const { return edit.isModified(); }
  QString Text() const { return edit.text(); }
  const QString& Name() const { return name; }

 private:
  void Edited();
  void ShowValue();
  void CheckValue();
  void SetProblem(ProblemText text);
  QString EntryProblem(const QString& reason) const;

  DialogRun& run;
  MessageLine& messages;
  nrvui::controls::UI_TextEdit& field;
  TextField& edit;
  QString shownValue;
  QString shownRange;
  QString origin;       // of the value, for ValueProblem
  ProblemText problem;  // a function, since the field's name can change; null for none
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
  void Sync() override;
  void SetMnemonic(const QKeySequence& keys) override { widget.SetMnemonic(keys); }
  std::optional<PendingEntry> Pending() const override;
  /// Steps by `count` of the field's unit, clamped to the bounds.
  void StepRequested(int count) override;
  void NumberRequested(double value) override;

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
