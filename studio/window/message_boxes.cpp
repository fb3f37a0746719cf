#include "studio/window/message_boxes.h"

#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "studio/base/studio_error.h"
#include "studio/base/text.h"
#include "studio/window/line_icon.h"

namespace {

constexpr int kAboutIconSide = 56;
constexpr int kColumns = 56;  // that boxes are wide at least, in characters

QString OkText() {
  return Text("$$$/Studio/Box/OK=OK");
}

/// Shows the box. Names of files can look like markup and are none; boxes as narrow as a short text
/// allows cut their titles off.
void Run(QMessageBox& box) {
  for (QLabel* label : box.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
  auto* const grid = qobject_cast<QGridLayout*>(box.layout());
  const int width = box.fontMetrics().averageCharWidth() * kColumns;
  if (grid) grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
  box.exec();
}

}  // namespace

void MessageBoxes::ShowAlert(const std::string& text) {
  QMessageBox box(QMessageBox::Warning, Text("$$$/Studio/Box/AlertTitle=Tesserae Studio"),
                  QString::fromStdString(text), QMessageBox::NoButton, window);
  box.setObjectName("alert");
  box.addButton(OkText(), QMessageBox::AcceptRole);
  Run(box);
}

void MessageBoxes::ShowAbout(const std::string& firstText, const std::string& secondText) {
  QMessageBox box(window);
  box.setObjectName("about");
  box.setWindowTitle(Text("$$$/Studio/Box/AboutTitle=About %1", QString::fromStdString(firstText)));
  box.setIconPixmap(LineIcon(Drawing::kTesserae)
                        .pixmap({kAboutIconSide, kAboutIconSide}, window->devicePixelRatioF()));
  box.setText(QString::fromStdString(firstText));
  box.setInformativeText(QString::fromStdString(secondText));
  box.addButton(OkText(), QMessageBox::AcceptRole);
  Run(box);
}

void MessageBoxes::ShowError(const QString& text, const std::exception& error) const {
  QMessageBox box(QMessageBox::Warning, Text("$$$/Studio/Box/AlertTitle=Tesserae Studio"), text,
                  QMessageBox::NoButton, window);
  box.setObjectName("error");
  box.setInformativeText(Sentence(ReasonText(error)));
  box.addButton(OkText(), QMessageBox::AcceptRole);
  Run(box);
}

MessageBoxes::Answer MessageBoxes::AskBeforeClosing(const QString& picture) const {
  QMessageBox box(
      QMessageBox::Question, Text("$$$/Studio/Box/AlertTitle=Tesserae Studio"),
      Text("$$$/Studio/Box/NotExported=Your mosaic of %1 is not exported yet.", picture),
      QMessageBox::NoButton, window);
  box.setObjectName("notExported");
  box.setInformativeText(Text("$$$/Studio/Box/LostOtherwise=If you close now, it is lost."));
  auto* const exporting =
      box.addButton(Text("$$$/Studio/Box/Export=&Export…"), QMessageBox::AcceptRole);
  auto* const discarding = box.addButton(Text("$$$/Studio/Box/Discard=Close &Without Exporting"),
                                         QMessageBox::DestructiveRole);
  auto* const staying =
      box.addButton(Text("$$$/Studio/Box/Cancel=Cancel"), QMessageBox::RejectRole);
  box.setDefaultButton(exporting);
  box.setEscapeButton(staying);
  Run(box);
  if (box.clickedButton() == exporting) return Answer::kExport;
  return box.clickedButton() == discarding ? Answer::kDiscard : Answer::kStay;
}
