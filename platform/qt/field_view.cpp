#include "platform/qt/field_view.h"

#include "platform/nrvcore/localizer.h"
#include "platform/qt/text.h"

namespace qtui {

using nrvcore::config::Localizer;
using nrvcore::config::ReplacementValue;
using nrvui::gestures::Outcome;

namespace {

constexpr const char* kProblem = "$$$/nrvui/Field/Problem=%1: %2";
constexpr const char* kProblemAndRange = "$$$/nrvui/Field/ProblemAndRange=%1: %2 Allowed here: %3.";

QString Localized(const char* key, const QString& one, const QString& two,
                  const QString& three = {}) {
  return ToQString(Localizer::Get().Localize(
      key, {ReplacementValue(FromQString(one)), ReplacementValue(FromQString(two)),
            ReplacementValue(FromQString(three))}));
}

}  // namespace

FieldView::FieldView(DialogRun& modalRun, MessageLine& messageLine,
                     nrvui::controls::UI_TextEdit& shown, TextField& textField)
    : NodeView(shown),
      run(modalRun),
      messages(messageLine),
      field(shown),
      edit(textField),
      name(ToQString(shown.UI_GetNodeID())) {
  edit.SetListener(this);
  QObject::connect(&edit, &QLineEdit::textEdited, &edit, [this] { run.SetEditor(this); });
}

FieldView::~FieldView() {
  run.ForgetEditor(this);
  edit.SetListener(nullptr);
}

void FieldView::Follow() {
  if (ToQString(field.GetValue()) != shownValue) {
    ClearProblem();
    ShowValue();
  }
  NodeView::Follow();
  if (edit.hasFocus()) ShowHint();
}

void FieldView::SetName(const QString& spokenName) {
  name = spokenName;
  NodeView::SetName(name);
}

void FieldView::ShowValue() {
  shownValue = ToQString(field.GetValue());
  edit.setText(shownValue);
  edit.setCursorPosition(0);
  if (edit.hasFocus()) edit.selectAll();
}

bool FieldView::Commit() {
  run.SetEditor(nullptr);
  if (!edit.isModified() || run.IsOver()) return true;
  edit.setModified(false);
  return Enter(FromQString(edit.text()));
}

bool FieldView::Enter(const nrvcore::UTF16String& text) {
  const Outcome outcome = run.Enter(field, text);
  if (run.IsOver()) return false;
  ShowValue();
  if (!outcome.IsRefused() && !outcome.IsPulled()) {
    ClearProblem();
    return true;
  }
  ShowProblem(Problem(ToQString(Describe(outcome))));
  return false;
}

void FieldView::FieldFocused() {
  ShowHint();
}

void FieldView::FieldLeft() {
  messages.SetHint({});
  Commit();
}

void FieldView::ShowHint() {
  const QString range = Range();
  messages.SetHint(range.isEmpty() ? QString() : Localized(HintKey(), name, range));
}

QString FieldView::Problem(const QString& sentence) const {
  QString range = Range();
  range.replace(u' ', QChar::Nbsp);
  return range.isEmpty() ? Localized(kProblem, name, sentence)
                         : Localized(kProblemAndRange, name, sentence, range);
}

void FieldView::ShowProblem(const QString& text) {
  messages.SetProblem(field, text);
  edit.SetMarked(true);
}

void FieldView::ClearProblem() {
  messages.ClearProblem(field);
  edit.SetMarked(false);
}

TextFieldView::TextFieldView(DialogRun& modalRun, MessageLine& messageLine,
                             nrvui::controls::UI_TextEdit& shown, TextField& newWidget)
    : FieldView(modalRun, messageLine, shown, newWidget), widget(newWidget) {}

TextFieldView::~TextFieldView() = default;

}  // namespace qtui
