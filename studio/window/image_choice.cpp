#include "studio/window/image_choice.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "studio/base/text.h"
#include "studio/drawing/svg_drawing.h"

std::optional<const ImageElement*> AskForImage(QWidget& window, const SvgDrawing& drawing) {
  QDialog dialog(&window);
  dialog.setObjectName("imageChoice");
  dialog.setWindowTitle(Text("$$$/Studio/ImageChoice/Title=Open Drawing"));
  dialog.setMinimumWidth(dialog.fontMetrics().averageCharWidth() * 48);
  auto* const layout = new QVBoxLayout(&dialog);
  auto* const question =
      new QLabel(Text("$$$/Studio/ImageChoice/Question=Which image of %1 should become a mosaic?",
                      QFileInfo(drawing.Path()).fileName()));
  question->setTextFormat(Qt::PlainText);
  question->setWordWrap(true);
  auto* const list = new QListWidget;
  for (const ImageElement& image : drawing.Images()) list->addItem(image.Name());
  list->addItem(Text("$$$/Studio/ImageChoice/Whole=The whole drawing, as one picture"));
  list->setCurrentRow(0);
  auto* const buttons = new QDialogButtonBox;
  buttons->addButton(Text("$$$/Studio/ImageChoice/Open=&Open"), QDialogButtonBox::AcceptRole);
  buttons->addButton(Text("$$$/Studio/Box/Cancel=Cancel"), QDialogButtonBox::RejectRole);
  layout->addWidget(question);
  layout->addWidget(list);
  layout->addWidget(buttons);
  QObject::connect(list, &QListWidget::itemActivated, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  list->setFocus();
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const auto row = size_t(list->currentRow());
  return row < drawing.Images().size() ? &drawing.Images()[row] : nullptr;
}
