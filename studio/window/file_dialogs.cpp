#include "studio/window/file_dialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QImageReader>
#include <algorithm>
#include <iterator>

#include "studio/base/text.h"

namespace {

struct ExportKind {
  const char* ending;
  const char* filter;
};

constexpr ExportKind kExportKinds[] = {
    {".svg", "$$$/Studio/Export/Svg=SVG drawing (*.svg)"},
    {".pdf", "$$$/Studio/Export/Pdf=PDF document (*.pdf)"},
    {".png", "$$$/Studio/Export/Png=PNG picture (*.png)"},
};

QString PictureFilter() {
  QStringList endings;
  for (const QByteArray& format : QImageReader::supportedImageFormats()) {
    endings << "*." + QString::fromLatin1(format);
  }
  return Text("$$$/Studio/Open/Pictures=Pictures (%1)", endings.join(' ')) + ";;" +
         Text("$$$/Studio/Open/AllFiles=All files (%1)", QString("*"));
}

/// What stands behind a dot is not always an ending.
bool HasEnding(const QString& path) {
  return std::any_of(std::begin(kExportKinds), std::end(kExportKinds), [&](const auto& kind) {
    return path.endsWith(QLatin1String(kind.ending), Qt::CaseInsensitive);
  });
}

}  // namespace

QString AskForPicture(QWidget& window, const QString& folder) {
  return QFileDialog::getOpenFileName(&window, Text("$$$/Studio/Open/Title=Open Picture"), folder,
                                      PictureFilter());
}

QString AskForExport(QWidget& window, const QString& folder, const QString& name) {
  QFileDialog dialog(&window, Text("$$$/Studio/Export/Title=Export Mosaic"), folder);
  dialog.setObjectName("export");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  QStringList filters;
  for (const ExportKind& kind : kExportKinds) filters << Text(kind.filter);
  dialog.setNameFilters(filters);
  dialog.selectFile(name + kExportKinds[0].ending);
  while (dialog.exec() == QDialog::Accepted) {
    QString path = dialog.selectedFiles().constFirst();
    if (HasEnding(path)) return path;
    const auto chosen = std::max<qsizetype>(0, filters.indexOf(dialog.selectedNameFilter()));
    QString whole = path + kExportKinds[chosen].ending;
    if (!QFileInfo::exists(whole)) return whole;
    dialog.selectFile(whole);  // to be asked whether it may be replaced
  }
  return {};
}
