#include "platform/qt/label_view.h"

#include "platform/qt/qt_text.h"

namespace qtui {

using nrvui::controls::UI_StaticText;

namespace {

constexpr QChar kLeftToRightMark = u'\u200E';

}  // namespace

LabelView::LabelView(UI_StaticText& shown, QWidget& parent)
    : CaptionedView(shown), text(shown), label(*new QLabel(&parent)) {
  label.setTextFormat(Qt::PlainText);
}

bool LabelView::IsLabel() const {
  return !text.GetBuddy().IsEmpty();
}

void LabelView::SetBuddy(NodeView& buddy) {
  label.setBuddy(buddy.Widget());
  labelled = &buddy;
  SetCaption(label.text());
}

void LabelView::SetName(const QString& spokenName) {
  name = spokenName;
  label.setAccessibleName(name + QStringLiteral(": ") + ToQString(text.GetValue()));
}

QString LabelView::Caption(bool withMnemonic) const {
  if (IsLabel()) return CaptionedView::Caption(withMnemonic);
  // A number and its unit are written from left to right in every language.
  const QString value = ToQString(text.GetValue());
  return label.isRightToLeft() ? kLeftToRightMark + value : value;
}

void LabelView::SetCaption(const QString& caption) {
  label.setText(caption);
  if (labelled != nullptr) {
    const QString full = ToQString(text.GetCaption());
    labelled->SetName(SpokenName(full));
    labelled->SetMnemonic(QKeySequence::mnemonic(full));
  }
  if (!name.isEmpty()) SetName(name);
}

}  // namespace qtui
