#include "studio/window/file_dialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>

#include "studio/base/studio_error.h"
#include "studio/export/mosaic_export.h"
#include "studio/picture/picture_reader.h"

namespace {

/// Empty when the formats are unknown, as opening a picture will say why.
QStringList PictureEndings() try {
  QStringList endings;
  for (const PictureFormat& format : PictureFormats()) endings << format.endings;
  return endings;
} catch (const StudioError&) {
  return {};
}

QString PictureFilter() {
  const QString patterns = "*." + PictureEndings().join(" *.");
  return Text("$$$/Studio/Open/Pictures=Pictures (%1)", patterns) + ";;" +
         Text("$$$/Studio/Open/AllFiles=All files (%1)", QString("*"));
}

/// "holiday" for "holiday.jpg": that ending is the picture's, no part of the name.
QString WithoutPictureEnding(const QString& path) {
  const QString ending = QFileInfo(path).suffix().toLower();
  return PictureEndings().contains(ending) ? path.chopped(ending.size() + 1) : path;
}

}  // namespace

QString AskForPicture(QWidget& window, const QString& folder) {
  return QFileDialog::getOpenFileName(&window, Text("$$$/Studio/Open/Title=Open Picture"), folder,
                                      PictureFilter(), nullptr, QFileDialog::HideNameFilterDetails);
}

QString AskForExport(QWidget& window, const QString& folder, const QString& name,
                     const ExportKind& proposed) {
  QFileDialog dialog(&window, Text("$$$/Studio/Export/Title=Export Mosaic"), folder);
  dialog.setObjectName("export");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  QStringList filters;
  for (const ExportKind& kind : ExportKinds()) filters << Text(kind.filter);
  dialog.setNameFilters(filters);
  dialog.selectNameFilter(Text(proposed.filter));
  dialog.selectFile(name + proposed.ending);
  while (dialog.exec() == QDialog::Accepted) {
    QString path = dialog.selectedFiles().constFirst();
    if (FindExportKind(path)) return path;  // what follows a dot is not always an ending
    const auto chosen = std::max<qsizetype>(0, filters.indexOf(dialog.selectedNameFilter()));
    QString whole = WithoutPictureEnding(path) + ExportKinds()[size_t(chosen)].ending;
    if (!QFileInfo::exists(whole)) return whole;
    dialog.selectFile(whole);  // to be asked whether it may be replaced
  }
  return {};
}
