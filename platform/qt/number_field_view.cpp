#include "platform/qt/number_field_view.h"

#include <algorithm>
#include <cmath>

#include "platform/nrvcore/localizer.h"
#include "platform/qt/text.h"

namespace qtui {

using nrvcore::UTF16String;
using nrvcore::config::Localizer;
using nrvcore::config::ReplacementValue;

namespace {

constexpr const char* kLengthHint =
    "$$$/nrvui/Field/LengthHint=%1: %2; mm, cm, in and px are understood too.";
constexpr const char* kBetween = "$$$/nrvui/Field/Between=%1 to %2";
constexpr const char* kAtLeast = "$$$/nrvui/Field/AtLeast=at least %1";
constexpr const char* kAtMost = "$$$/nrvui/Field/AtMost=at most %1";
constexpr const char* kOnly = "$$$/nrvui/Field/Only=only %1";

}  // namespace

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
  QAbstractSpinBox::StepEnabled steps;
  steps.setFlag(QAbstractSpinBox::StepUpEnabled, number.GetNumber() < number.GetUpperBound());
  steps.setFlag(QAbstractSpinBox::StepDownEnabled, number.GetNumber() > number.GetLowerBound());
  widget.SetStepEnabled(steps);
  const QString range = Range();
  widget.setToolTip(range);
  widget.setAccessibleDescription(range);
}

void NumberFieldView::StepAsked(int count) {
  if (!Commit()) return;
  const double stepped = std::min(number.GetNumber() + count, number.GetUpperBound());
  Enter(number.Format(std::max(stepped, number.GetLowerBound())));
}

const char* NumberFieldView::HintKey() const {
  const bool isLength = number.GetUnit() == nrvui::controls::NumberUnit::kLength;
  return isLength ? kLengthHint : FieldView::HintKey();
}

QString NumberFieldView::Range() const {
  const double lower = number.GetLowerBound();
  const double upper = number.GetUpperBound();
  const auto text = [](const char* key, const UTF16String& one, const UTF16String& two) {
    return ToQString(
        Localizer::Get().Localize(key, {ReplacementValue(one), ReplacementValue(two)}));
  };
  if (std::isfinite(lower) && lower == upper) return text(kOnly, number.Format(lower), {});
  if (std::isfinite(lower) && std::isfinite(upper)) {
    return text(kBetween, number.Format(lower), number.Format(upper));
  }
  if (std::isfinite(lower)) return text(kAtLeast, number.Format(lower), {});
  if (std::isfinite(upper)) return text(kAtMost, number.Format(upper), {});
  return {};
}

}  // namespace qtui
