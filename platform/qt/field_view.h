#pragma once

#include "platform/nrvui/ui_edits.h"
#include "platform/qt/dialog_run.h"
#include "platform/qt/message_line.h"
#include "platform/qt/node_view.h"
#include "platform/qt/number_field.h"
#include "platform/qt/text_field.h"

namespace qtui {

/// A field in which a person types. What they typed reaches the node when they leave the field,
/// press Return or click something; until then the field shows it, afterwards what the node made
/// of it. A text that the person did not change is not entered. What was wrong with an entry is
/// said until the person edits the field again or it gets another value.
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
  void FieldLeft() override;

  void ShowProblem(const QString& text);

 protected:
  /// What may be entered, for the person; empty when anything may.
  virtual QString Range() const { return {}; }
  /// Localises to what the field takes: %1 is its name, %2 its range.
  virtual const char* HintKey() const { return "$$$/nrvui/Field/Hint=%1: %2"; }
  /// What is wrong with the node's value; empty when nothing is.
  virtual QString Complaint() const { return {}; }
  /// False when the person must look at what became of it.
  bool Enter(const nrvcore::UTF16String& text);

 private:
  void ShowValue();
  void Complain(const QString& sentence);
  void ClearProblem();

  DialogRun& run;
  MessageLine& messages;
  nrvui::controls::UI_TextEdit& field;
  TextField& edit;
  QString shownValue;
  QString wrong;  // what is wrong with the entry, without the range
  QString name;
};

/// A number with its unit and bounds.
class NumberFieldView final : public FieldView {
 public:
  NumberFieldView(DialogRun& modalRun, MessageLine& messageLine,
                  nrvui::controls::UI_NumberEdit& shown, NumberField& newWidget);
  ~NumberFieldView() override;

  QWidget* Widget() const override { return &widget; }
  void Follow() override;
  /// By so many of the field's unit, as far as the bounds allow.
  void StepAsked(int count) override;
  void NumberAsked(double value) override;

 protected:
  QString Range() const override;
  QString Complaint() const override;
  const char* HintKey() const override;

 private:
  nrvui::controls::UI_NumberEdit& number;
  NumberField& widget;
};

}  // namespace qtui
