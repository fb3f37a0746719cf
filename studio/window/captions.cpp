#include "studio/window/captions.h"

#include <QFileInfo>
#include <QGuiApplication>

#include "studio/base/text.h"

namespace {

constexpr double kMillimetersPerPoint = 25.4 / 72;

QString ShortNumber(double value) {
  return NumberForUser(value, 1);
}

/// A picture of unknown size is drawn in an arbitrary one; a mosaic always has the size asked for.
bool IsSizeKnown(const Artwork& artwork) {
  return artwork.mosaic || artwork.isSizeKnown;
}

/// Numbers and their units, which stand from left to right also in a window that is mirrored.
QString InReadingOrder(const QString& measures) {
  constexpr QChar kMark(0x200E);
  return QGuiApplication::isRightToLeft() ? kMark + measures + kMark : measures;
}

}  // namespace

QString SizeInPointsText(const Artwork& artwork) {
  if (!IsSizeKnown(artwork)) return Text("$$$/Studio/Size/Unknown=Size unknown");
  return InReadingOrder(Text("$$$/Studio/Size/Points=%1 × %2 pt",
                             ShortNumber(artwork.Size().width()),
                             ShortNumber(artwork.Size().height())));
}

QString SummaryText(const Artwork& artwork) {
  QStringList parts{SizeInPointsText(artwork)};
  if (artwork.mosaic) {
    const MosaicGeometry& geometry = artwork.mosaic->geometry;
    const uint64_t count = uint64_t(geometry.tilesAcross) * geometry.tilesDown;
    parts.prepend(PluralText("$$$/Studio/Size/Tiles=%1 × %2 tile", "%1 × %2 tiles", count,
                             NumberForUser(geometry.tilesAcross),
                             NumberForUser(geometry.tilesDown)));
  }
  if (IsSizeKnown(artwork)) {
    const QSizeF size = artwork.Size() * kMillimetersPerPoint;
    parts += Text("$$$/Studio/Size/Millimeters=%1 × %2 mm", ShortNumber(size.width()),
                  ShortNumber(size.height()));
  }
  return InReadingOrder(parts.join("   ·   "));
}

QString PercentText(double share) {
  return InReadingOrder(Text("$$$/Studio/Size/Percent=%1 %", ShortNumber(share * 100)));
}

QString FileCaption(const QString& path) {
  return QFileInfo(path).fileName().replace('&', "&&");
}

QString FileToolTip(const QString& path) {
  return "<p style='white-space: pre'>" + path.toHtmlEscaped() + "</p>";
}
