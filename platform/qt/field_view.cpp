#include "platform/qt/field_view.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/nrvcore/localizer.h"
#include "platform/qt/qt_text.h"

namespace qtui {

using nrvcore::UTF16String;
using nrvcore::config::Localizer;
using nrvcore::config::ReplacementValue;
using nrvui::gestures::Outcome;

namespace {

constexpr const char* kLengthHint = "$$$/nrvui/Field/LengthHint=%1: %2, also in mm, cm, in or px.";
constexpr const char* kBetween = "$$$/nrvui/Field/Between=%1 to %2";
constexpr const char* kAtLeast = "$$$/nrvui/Field/AtLeast=at least %1";
constexpr const char* kAtMost = "$$$/nrvui/Field/AtMost=at most %1";
constexpr const char* kOnly = "$$$/nrvui/Field/Only=only %1";
constexpr const char* kProduced =
    "$$$/nrvui/Field/Produced=%1: \"%4\" set %2, which is used although it is out of range (%3).";
constexpr const char* kNotEntered =
    "$$$/nrvui/Field/NotEntered=%1: %2 is used although it is out of range (%3).";
constexpr const char* kProblem = "$$$/nrvui/Field/Problem=%1: %2";
constexpr const char* kProblemAndRange = "$$$/nrvui/Field/ProblemAndRange=%1: %2 Allowed here: %3.";

template <typename... Values>
QString Localized(const char* key, const Values&... values) {
  return ToQString(Localizer::Get().Localize(key, {ReplacementValue(FromQString(values))...}));
}

/// The text with non-breaking spaces.
QString NonBreaking(QString text) {
  return text.replace(u' ', QChar::Nbsp);
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
  QObject::connect(&edit, &QLineEdit::textChanged, &edit, [this] {
    if (!isShowing) Edited();
  });
}

FieldView::~FieldView() {
  run.ForgetEditor(*this);
  edit.SetListener(nullptr);
}

void FieldView::Sync() {
  const QString value = ToQString(field.GetValue());
  const QString range = Range();
  if (value != shownValue) {
    const auto* const touched = dynamic_cast<const nrvui::controls::UI_ControlView*>(run.Touched());
    origin = touched != nullptr ? SpokenName(ToQString(touched->GetCaption())) : QString();
    ShowValue();
    CheckValue();
  } else if (range != shownRange) {
    CheckValue();
  }
  shownRange = range;
  NodeView::Sync();
}

void FieldView::SetName(const QString& spokenName) {
  name = spokenName;
  NodeView::SetName(name);
  if (problem) SetProblem(problem);
}

void FieldView::ShowValue() {
  const QScopedValueRollback showing(isShowing, true);
  shownValue = ToQString(field.GetValue());
  edit.setText(shownValue);
  edit.setCursorPosition(0);
  if (edit.hasFocus()) edit.selectAll();
  TextChanged();
}

void FieldView::Edited() {
  const QString text = edit.text();
  // Qt reports a text that assistive technology sets as unmodified, like a text that Undo restores.
  if (!edit.isModified() && text != shownValue) edit.setModified(true);
  SetProblem({});
  run.NoteEdit(*this);
  if (edit.text() != text) {  // committing another field's edit has changed this value
    const QScopedValueRollback showing(isShowing, true);
    edit.setText(text);
    edit.setModified(true);
  }
  TextChanged();
}

bool FieldView::Commit() {
  run.ForgetEditor(*this);
  if (!edit.isModified() || run.IsOver()) return true;
  edit.setModified(false);
  return Enter(FromQString(edit.text()));
}

bool FieldView::Enter(const UTF16String& text) {
  return ShowEntry(run.Enter(field, text));
}

bool FieldView::ShowEntry(const Outcome& outcome) {
  if (run.IsOver()) return false;
  ShowValue();
  if (!outcome.IsRefused() && !outcome.IsClamped()) {
    CheckValue();
    return true;
  }
  const QString reason = ToQString(Describe(outcome));
  SetProblem([this, reason] { return EntryProblem(reason); });
  return false;
}

void FieldView::FieldLeft() {
  if (!edit.isModified()) CheckValue();
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

QString FieldView::EntryProblem(const QString& reason) const {
  const QString range = Range();
  return range.isEmpty() ? Localized(kProblem, name, reason)
                         : Localized(kProblemAndRange, name, reason, NonBreaking(range));
}

FieldView::ProblemText FieldView::ValueProblem(const QString&) const {
  return {};
}

void FieldView::CheckValue() {
  SetProblem(ValueProblem(origin));
}

void FieldView::SetProblem(ProblemText text) {
  problem = std::move(text);
  problem ? messages.SetProblem(field, problem()) : messages.ClearProblem(field);
  edit.SetMarked(bool(problem));
}

NumberFieldView::NumberFieldView(DialogRun& modalRun, MessageLine& messageLine,
                                 nrvui::controls::UI_NumberEdit& shown, NumberField& newWidget)
    : FieldView(modalRun, messageLine, shown, newWidget.Text()), number(shown), widget(newWidget) {
  widget.SetListener(this);
}

NumberFieldView::~NumberFieldView() {
  widget.SetListener(nullptr);
}

void NumberFieldView::Sync() {
  FieldView::Sync();
  widget.SetNumber({number.GetNumber(), number.GetLowerBound(), number.GetUpperBound()});
}

void NumberFieldView::StepRequested(int count) {
  if (!Commit()) return;
  const double stepped = std::min(number.GetNumber() + count, number.GetUpperBound());
  Enter(number.Format(std::max(stepped, number.GetLowerBound())));
}

void NumberFieldView::NumberRequested(double value) {
  Enter(number.Format(value));
}

const char* NumberFieldView::HintKey() const {
  const bool isLength = number.GetUnit() == nrvui::controls::NumberUnit::kLength;
  return isLength ? kLengthHint : FieldView::HintKey();
}

FieldView::ProblemText NumberFieldView::ValueProblem(const QString& origin) const {
  const double value = number.GetNumber();
  const UTF16String shown = number.Format(value);
  const double nearest = std::min(std::max(value, number.GetLowerBound()), number.GetUpperBound());
  if (shown == number.Format(nearest)) return {};
  return [this, origin, shown = NonBreaking(ToQString(shown))] {
    const QString range = NonBreaking(Range());
    return origin.isEmpty() ? Localized(kNotEntered, Name(), shown, range)
                            : Localized(kProduced, Name(), shown, range, origin);
  };
}

void NumberFieldView::TextChanged() {
  std::optional<double> typed;
  if (IsEdited()) {
    const auto reading = number.ParseEntry(FromQString(Text()));
    if (!reading.outcome.IsRefused()) typed = reading.number;
  }
  widget.SetTyped(typed);
}

std::optional<PendingEntry> NumberFieldView::Pending() const {
  if (!IsEdited()) return std::nullopt;
  const auto reading = number.ParseEntry(FromQString(Text()));
  if (reading.outcome.IsRefused() || reading.outcome.IsClamped()) return std::nullopt;
  return PendingEntry{&number, reading.number};
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
