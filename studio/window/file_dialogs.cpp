#include "studio/window/file_dialogs.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QImageReader>
#include <QLabel>
#include <QSpinBox>
#include <algorithm>
#include <cmath>

#include "studio/base/text.h"
#include "studio/export/mosaic_export.h"

namespace {

QString PictureFilter() {
  QStringList endings;
  for (const QByteArray& format : QImageReader::supportedImageFormats()) {
    endings << "*." + QString::fromLatin1(format);
  }
  return Text("$$$/Studio/Open/Pictures=Pictures (%1)", endings.join(' ')) + ";;" +
         Text("$$$/Studio/Open/AllFiles=All files (%1)", QString("*"));
}

/// "holiday" for "holiday.jpg": that ending is the picture's, no part of the name.
QString WithoutPictureEnding(const QString& path) {
  const QByteArray ending = QFileInfo(path).suffix().toLower().toLatin1();
  return QImageReader::supportedImageFormats().contains(ending) ? path.chopped(ending.size() + 1)
                                                                : path;
}

}  // namespace

QString AskForPicture(QWidget& window, const QString& folder) {
  return QFileDialog::getOpenFileName(&window, Text("$$$/Studio/Open/Title=Open Picture"), folder,
                                      PictureFilter());
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

std::optional<double> AskForPngScale(QWidget& window, const MosaicGeometry& geometry) {
  constexpr double kPointsPerInch = 72;
  constexpr double kMostPixels = 256e6;
  const QSizeF size = geometry.size;
  const double most = std::min(std::sqrt(kMostPixels / (size.width() * size.height())),
                               kMostPngSide / std::max(size.width(), size.height()));

  QDialog dialog(&window);
  dialog.setObjectName("pngSize");
  dialog.setWindowTitle(Text("$$$/Studio/Png/Title=PNG Picture"));
  dialog.setMinimumWidth(dialog.fontMetrics().averageCharWidth() * 40);  // for the title
  auto* const form = new QFormLayout(&dialog);
  auto* const width = new QSpinBox;
  width->setRange(1, std::max(1, int(size.width() * most)));
  width->setSuffix(Text("$$$/Studio/Png/Pixels= px"));
  auto* const resolution = new QDoubleSpinBox;
  resolution->setRange(kPointsPerInch / size.width(), kPointsPerInch * most);
  resolution->setSuffix(Text("$$$/Studio/Png/DotsPerInch= dpi"));
  form->addRow(Text("$$$/Studio/Png/Width=&Width:"), width);
  form->addRow(Text("$$$/Studio/Png/Resolution=&Resolution:"), resolution);
  auto* const result = new QLabel;
  form->addRow(result);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  form->addRow(buttons);

  double scale = 0;
  const auto show = [&](double pixelsPerPoint) {
    scale = pixelsPerPoint;
    const QSignalBlocker widthIsQuiet(width), resolutionIsQuiet(resolution);
    width->setValue(qRound(size.width() * scale));
    resolution->setValue(kPointsPerInch * scale);
    result->setText(Text("$$$/Studio/Png/Size=%1 × %2 pixels",
                         QString::number(qRound(size.width() * scale)),
                         QString::number(qRound(size.height() * scale))));
  };
  show(PngScale(geometry));
  QObject::connect(width, &QSpinBox::valueChanged, &dialog,
                   [&](int pixels) { show(pixels / size.width()); });
  QObject::connect(resolution, &QDoubleSpinBox::valueChanged, &dialog,
                   [&](double dots) { show(dots / kPointsPerInch); });
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  width->selectAll();
  return dialog.exec() == QDialog::Accepted ? std::optional(scale) : std::nullopt;
}
