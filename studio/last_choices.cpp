#include "studio/last_choices.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSizeF>
#include <QStandardPaths>
#include <algorithm>
#include <cmath>

#include "studio/output_set.h"
#include "studio/studio_error.h"
#include "studio/text_writer.h"

namespace {

constexpr int kFirstTilesAcross = 100;
constexpr int kMostTilesEntered = 8640;  // that the dialog lets a person enter

// The dialog reckons with sizes of 16 bits; what doesn't fit there has no size for it.
constexpr double kLargestSize = 32767;

bool IsUsable(double length) {
  return length >= 0.5 && length < kLargestSize + 0.5;
}

}  // namespace

LastChoices::LastChoices(const QString& namedPath)
    : isNamed(!namedPath.isEmpty()),
      path(isNamed ? namedPath
                   : QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                         "/choices.json") {}

std::optional<MosaicChoices> LastChoices::Load() const try {
  if (!QFileInfo::exists(path)) return std::nullopt;
  if (!QFileInfo(path).isFile())
    throw StudioError("$$$/Studio/Write/NoFile=it is no ordinary file");
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw StudioError(ReasonText(file));
  return ChoicesFromJson(file.readAll());
} catch (const StudioError& error) {
  throw StudioError("$$$/Studio/Choices/Unreadable=the last choices in %1 cannot be read: %2", path,
                    QString(error.what()));
}

void LastChoices::Save(const MosaicChoices& choices) const {
  QDir().mkpath(QFileInfo(path).absolutePath());
  OutputSet output;
  WriteAll(output.Add(path), ChoicesToJson(choices).toStdString());
  output.Commit();
}

bool IsUsableSize(QSizeF size) {
  return IsUsable(size.width()) && IsUsable(size.height());
}

MosaicChoices ChoicesFor(QSizeF pictureSize, const std::optional<MosaicChoices>& last) {
  MosaicChoices choices;
  MosaicParameters& params = choices.params;
  if (last) {
    choices = *last;
  } else {
    const double down = kFirstTilesAcross * pictureSize.height() / pictureSize.width();
    params.tilesAcross = kFirstTilesAcross;
    params.tilesDown = std::clamp(int(std::lround(std::min(down, 1e6))), 1, kMostTilesEntered);
    params.isColor = 1;
    params.deleteRaster = 1;
    params.keepHorizontal = 1;
  }
  if (IsUsableSize(pictureSize)) {
    params.boundsRight = int(std::lround(pictureSize.width()));
    params.boundsBottom = int(std::lround(pictureSize.height()));
  } else {
    params.sizeUnavailable = 1;
  }
  return choices;
}
