#include "studio/window/png_size_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QSpinBox>
#include <algorithm>

#include "studio/base/text.h"
#include "studio/export/mosaic_export.h"

std::optional<double> AskForPngScale(QWidget& window, const MosaicGeometry& geometry) {
  constexpr double kPointsPerInch = 72;
  const QSizeF size = geometry.size;
  const double most = MostPngScale(size);

  QDialog dialog(&window);
  dialog.setObjectName("pngSize");
  dialog.setWindowTitle(Text("$$$/Studio/Png/Title=PNG Picture"));
  dialog.setMinimumWidth(dialog.fontMetrics().averageCharWidth() * 40);  // for the title
  auto* const form = new QFormLayout(&dialog);
  auto* const width = new QSpinBox;
  width->setRange(1, std::max(1, int(size.width() * most)));
  width->setSuffix(Text("$$$/Studio/Png/Pixels= px"));
  auto* const resolution = new QDoubleSpinBox;
  constexpr double kLeastShown = 0.01;
  resolution->setRange(std::max(kLeastShown, kPointsPerInch / size.width()), kPointsPerInch * most);
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
