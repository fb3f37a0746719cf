#include "studio/window/file_dialogs.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "studio/base/studio_error.h"
#include "studio/drawing/svg_drawing.h"
#include "studio/export/mosaic_export.h"
#include "studio/picture/picture_reader.h"

namespace {

/// Empty when the formats cannot be queried; opening a picture then reports the reason.
QStringList PictureEndings() {
  QStringList endings;
  try {
    for (const PictureFormat& format : PictureFormats()) endings << format.endings;
  } catch (const StudioError&) {
    endings.clear();
  }
  return endings;
}

QString PictureFilter() {
  const QString patterns = "*." + PictureEndings().join(" *.");
  return Text("$$$/Studio/Open/Pictures=Pictures (%1)", patterns) + ";;" +
         Text("$$$/Studio/Open/AllFiles=All files (%1)", QString("*"));
}

/// "holiday" for "holiday.jpg"; other endings are part of the name.
QString WithoutPictureEnding(const QString& path) {
  const QString ending = QFileInfo(path).suffix().toLower();
  return PictureEndings().contains(ending) ? path.chopped(ending.size() + 1) : path;
}

/// Adds the ending to the name that the user types, and announces that below it.
class ExportDialog final : public QFileDialog {
 public:
  ExportDialog(QWidget& window, const QString& proposed)
      : QFileDialog(&window, Text("$$$/Studio/Export/Title=Export Mosaic"),
                    QFileInfo(proposed).absolutePath()),
        notice(new QLabel) {
    setObjectName("export");
    setOption(DontUseNativeDialog);  // which could not show the notice
    setAcceptMode(AcceptSave);
    QStringList filters;
    for (const ExportKind& kind : ExportKinds()) filters << Text(kind.filter);
    setNameFilters(filters);
    selectNameFilter(Text(ExportKindOf(proposed).filter));
    selectFile(QFileInfo(proposed).fileName());
    name = findChild<QLineEdit*>("fileNameEdit");
    notice->setTextFormat(Qt::PlainText);
    notice->setWordWrap(true);
    notice->setObjectName("exportNotice");
    auto& grid = static_cast<QGridLayout&>(*layout());
    grid.addWidget(notice, grid.rowCount(), 0, 1, grid.columnCount());
    connect(name, &QLineEdit::textChanged, this, [this] { ShowNotice(); });
    connect(this, &QFileDialog::filterSelected, this, [this] { TakeEnding(); });
    ShowNotice();
  }

  void accept() override {
    name->setText(Whole(name->text()));
    QFileDialog::accept();  // asks before a file is replaced
  }

 private:
  const ExportKind& Chosen() const {
    const auto index = nameFilters().indexOf(selectedNameFilter());
    return ExportKinds()[size_t(std::max<qsizetype>(0, index))];
  }

  /// The name with the ending of an export kind. In "10.15" the dot starts no ending.
  QString Whole(const QString& typed) const {
    if (typed.isEmpty() || FindExportKind(typed) || QFileInfo(directory(), typed).isDir())
      return typed;
    return WithoutPictureEnding(typed) + Chosen().ending;
  }

  /// Replaces the ending of another kind by that of the chosen one.
  void TakeEnding() {
    const QString typed = name->text();
    if (const ExportKind* const kind = FindExportKind(typed))
      name->setText(typed.chopped(qsizetype(qstrlen(kind->ending))) + Chosen().ending);
    ShowNotice();
  }

  void ShowNotice() {
    const QString whole = Whole(name->text());
    QString text;
    if (QFileInfo(directory(), whole).isFile()) {
      text = Text("$$$/Studio/Export/Replaces=%1 exists and will be replaced.", whole);
    } else if (whole != name->text()) {
      text = Text("$$$/Studio/Export/SavedAs=The file will be named %1.", whole);
    }
    notice->setText(text);
  }

  QLineEdit* name;
  QLabel* const notice;
};

}  // namespace

QString AskForPicture(QWidget& window, const QString& folder) {
  return QFileDialog::getOpenFileName(&window, Text("$$$/Studio/Open/Title=Open Picture"), folder,
                                      PictureFilter(), nullptr, QFileDialog::HideNameFilterDetails);
}

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

QString AskForExport(QWidget& window, const QString& proposed) {
  ExportDialog dialog(window, proposed);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}
