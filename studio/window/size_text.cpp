#include "studio/window/size_text.h"

#include <QLocale>
#include <cmath>

#include "studio/text.h"

namespace {

constexpr double kMillimetersPerPoint = 25.4 / 72;

/// Numbers look as they do in the dialog.
QLocale PlainLocale() {
  QLocale locale;
  locale.setNumberOptions(QLocale::OmitGroupSeparator);
  return locale;
}

QString NumberText(double value) {
  const double rounded = std::round(value * 10) / 10;
  return PlainLocale().toString(rounded, 'f', rounded == std::floor(rounded) ? 0 : 1);
}

/// A picture without a size of its own lies there in a size that says nothing; a mosaic has one.
bool IsSizeKnown(const Artwork& artwork) {
  return artwork.mosaic || artwork.isSizeKnown;
}

QString SizeInMillimetersText(const Artwork& artwork) {
  if (!IsSizeKnown(artwork)) return {};
  const QSizeF size = artwork.Size() * kMillimetersPerPoint;
  return Text("$$$/Studio/Size/Millimeters=%1 × %2 mm", NumberText(size.width()),
              NumberText(size.height()));
}

QString TileCountText(const Artwork& artwork) {
  if (!artwork.mosaic) return {};
  const MosaicGeometry& geometry = artwork.mosaic->geometry;
  return Text("$$$/Studio/Size/Tiles=%1 × %2 tiles", PlainLocale().toString(geometry.tilesAcross),
              PlainLocale().toString(geometry.tilesDown));
}

}  // namespace

QString SizeInPointsText(const Artwork& artwork) {
  if (!IsSizeKnown(artwork)) return Text("$$$/Studio/Size/Unknown=Size unknown");
  return Text("$$$/Studio/Size/Points=%1 × %2 pt", NumberText(artwork.Size().width()),
              NumberText(artwork.Size().height()));
}

QString SummaryText(const Artwork& artwork) {
  QStringList parts{TileCountText(artwork), SizeInPointsText(artwork),
                    SizeInMillimetersText(artwork)};
  parts.removeAll({});
  return parts.join("   ·   ");
}

QString PercentText(double share) {
  return Text("$$$/Studio/Size/Percent=%1 %", NumberText(share * 100));
}
