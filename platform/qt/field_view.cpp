#include "platform/qt/field_view.h"

#include <algorithm>
#include <cmath>

#include "platform/nrvcore/localizer.h"
#include "platform/qt/qt_text.h"

namespace qtui {

using nrvcore::UTF16String;
using nrvcore::config::Localizer;
using nrvcore::config::ReplacementValue;
using nrvui::gestures::Outcome;

namespace {

constexpr const char* kLengthHint =
    "$$$/nrvui/Field/LengthHint=%1: %2; mm, cm, in and px are understood too.";
constexpr const char* kBetween = "$$$/nrvui/Field/Between=%1 to %2";
constexpr const char* kAtLeast = "$$$/nrvui/Field/AtLeast=at least %1";
constexpr const char* kAtMost = "$$$/nrvui/Field/AtMost=at most %1";
constexpr const char* kOnly = "$$$/nrvui/Field/Only=only %1";
constexpr const char* kOutside = "$$$/nrvui/Field/Outside=%1 can stand here, but not be entered.";
constexpr const char* kProblem = "$$$/nrvui/Field/Problem=%1: %2";
constexpr const char* kProblemAndRange = "$$$/nrvui/Field/ProblemAndRange=%1: %2 Allowed here: %3.";

QString Localized(const char* key, const QString& one, const QString& two = {},
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
  QObject::connect(&edit, &QLineEdit::textEdited, &edit, [this] {
    ClearProblem();
    run.SetEditor(this);
  });
}

FieldView::~FieldView() {
  run.ForgetEditor(this);
  edit.SetListener(nullptr);
}

void FieldView::Follow() {
  if (ToQString(field.GetValue()) != shownValue) {
    ClearProblem();
    ShowValue();
    wrong = Complaint();
  }
  if (!wrong.isEmpty()) Complain(wrong);  // the range may be another one now
  NodeView::Follow();
}

void FieldView::SetName(const QString& spokenName) {
  name = spokenName;
  NodeView::SetName(name);
  if (!wrong.isEmpty()) Complain(wrong);
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

bool FieldView::Enter(const UTF16String& text) {
  const Outcome outcome = run.Enter(field, text);
  if (run.IsOver()) return false;
  ShowValue();
  if (!outcome.IsRefused() && !outcome.IsPulled()) {
    ClearProblem();
    return true;
  }
  Complain(ToQString(Describe(outcome)));
  return false;
}

void FieldView::FieldLeft() {
  Commit();
}

QString FieldView::Description() const {
  return (NodeView::Description() + ' ' + Range()).trimmed();
}

QString FieldView::Hint() const {
  const QString range = Range();
  const QString takes = range.isEmpty() ? QString() : Localized(HintKey(), name, range);
  return (NodeView::Description() + ' ' + takes).trimmed();
}

void FieldView::Complain(const QString& sentence) {
  wrong = sentence;
  QString range = Range();
  range.replace(u' ', QChar::Nbsp);
  ShowProblem(range.isEmpty() ? Localized(kProblem, name, wrong)
                              : Localized(kProblemAndRange, name, wrong, range));
}

void FieldView::ShowProblem(const QString& text) {
  messages.SetProblem(field, text);
  edit.SetMarked(true);
}

void FieldView::ClearProblem() {
  wrong.clear();
  messages.ClearProblem(field);
  edit.SetMarked(false);
}

NumberFieldView::NumberFieldView(DialogRun& modalRun, MessageLine& messageLine,
                                 nrvui::controls::UI_NumberEdit& shown, NumberField& newWidget)
    : FieldView(modalRun, messageLine, shown, newWidget.Text()), number(shown), widget(newWidget) {
  widget.SetListener(this);
}

NumberFieldView::~NumberFieldView() {
  widget.SetListener(nullptr);
}

void NumberFieldView::Follow() {
  FieldView::Follow();
  widget.SetNumber({number.GetNumber(), number.GetLowerBound(), number.GetUpperBound()});
}

void NumberFieldView::StepAsked(int count) {
  if (!Commit()) return;
  const double stepped = std::min(number.GetNumber() + count, number.GetUpperBound());
  Enter(number.Format(std::max(stepped, number.GetLowerBound())));
}

void NumberFieldView::NumberAsked(double value) {
  Enter(number.Format(value));
}

const char* NumberFieldView::HintKey() const {
  const bool isLength = number.GetUnit() == nrvui::controls::NumberUnit::kLength;
  return isLength ? kLengthHint : FieldView::HintKey();
}

QString NumberFieldView::Complaint() const {
  const UTF16String shown = number.Format(number.GetNumber());
  const double nearest =
      std::min(std::max(number.GetNumber(), number.GetLowerBound()), number.GetUpperBound());
  if (shown == number.Format(nearest)) return {};
  return Localized(kOutside, ToQString(shown));
}

QString NumberFieldView::Range() const {
  const double lower = number.GetLowerBound();
  const double upper = number.GetUpperBound();
  const auto text = [this](double bound) { return ToQString(number.Format(bound)); };
  if (std::isfinite(lower) && lower == upper) return Localized(kOnly, text(lower));
  if (std::isfinite(lower) && std::isfinite(upper)) {
    return Localized(kBetween, text(lower), text(upper));
  }
  if (std::isfinite(lower)) return Localized(kAtLeast, text(lower));
  if (std::isfinite(upper)) return Localized(kAtMost, text(upper));
  return {};
}

}  // namespace qtui
