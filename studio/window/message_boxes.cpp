#include "studio/window/message_boxes.h"

#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "platform/qt/theme.h"
#include "studio/base/studio_error.h"
#include "studio/base/text.h"

namespace {

constexpr int kAboutIconSide = 56;
constexpr int kColumns = 56;  // that boxes are wide at least, in characters

/// Shows the box. Names of files can look like markup and are none; boxes as narrow as a short text
/// allows cut their titles off.
void Run(QMessageBox& box) {
  for (QLabel* label : box.findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
  auto* const grid = qobject_cast<QGridLayout*>(box.layout());
  const int width = box.fontMetrics().averageCharWidth() * kColumns;
  if (grid) grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
  box.exec();
}

void RunWithOk(QMessageBox& box, const char* name, const QString& text, const QString& more) {
  box.setObjectName(name);
  box.setText(text);
  box.setInformativeText(more);
  box.addButton(Text("$$$/Studio/Box/OK=OK"), QMessageBox::AcceptRole);
  Run(box);
}

void Warn(QWidget* window, const char* name, const QString& text, const QString& more = {}) {
  QMessageBox box(window);
  box.setIcon(QMessageBox::Warning);
  box.setWindowTitle(Text("$$$/Studio/Box/AlertTitle=Tesserae Studio"));
  RunWithOk(box, name, text, more);
}

}  // namespace

void MessageBoxes::ShowAlert(const std::string& text) {
  Warn(window, "alert", QString::fromStdString(text));
}

void MessageBoxes::ShowAbout(const std::string& firstText, const std::string& secondText) {
  QMessageBox box(window);
  box.setWindowTitle(Text("$$$/Studio/Box/AboutTitle=About Tesserae Studio"));
  box.setIconPixmap(qtui::ThemedIcon("tesserae")
                        .pixmap({kAboutIconSide, kAboutIconSide}, window->devicePixelRatioF()));
  RunWithOk(box, "about", Text("$$$/Studio/Title=Tesserae Studio"),
            Text("$$$/Studio/Box/AboutPlugIn=Plug-in %1: %2", QString::fromStdString(firstText),
                 QString::fromStdString(secondText)));
}

void MessageBoxes::ShowError(const QString& text, const std::exception& error) const {
  Warn(window, "error", text, Sentence(ReasonText(error)));
}

bool MessageBoxes::AskBeforeLargeExport(double bytes) const {
  QMessageBox box(QMessageBox::Question, Text("$$$/Studio/Box/AlertTitle=Tesserae Studio"),
                  Text("$$$/Studio/Box/LargeExport=The file will be about %1 GB.",
                       NumberForUser(bytes / 1e9, 1)),
                  QMessageBox::NoButton, window);
  box.setObjectName("largeExport");
  box.setInformativeText(
      Text("$$$/Studio/Box/LargeExportHint=Other programs may not be able to open it. Fewer tiles "
           "or a PNG picture need less space."));
  auto* const exporting =
      box.addButton(Text("$$$/Studio/Box/ExportAnyway=&Export"), QMessageBox::AcceptRole);
  box.setEscapeButton(box.addButton(Text("$$$/Studio/Box/Cancel=Cancel"), QMessageBox::RejectRole));
  box.setDefaultButton(exporting);
  Run(box);
  return box.clickedButton() == exporting;
}

MessageBoxes::Answer MessageBoxes::AskBeforeClosing(const QString& picture) const {
  QMessageBox box(
      QMessageBox::Question, Text("$$$/Studio/Box/AlertTitle=Tesserae Studio"),
      Text("$$$/Studio/Box/NotExported=Your mosaic of %1 has not been exported.", picture),
      QMessageBox::NoButton, window);
  box.setObjectName("notExported");
  box.setInformativeText(Text("$$$/Studio/Box/LostOtherwise=If you close now, it will be lost."));
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
