#include "studio/drawing/drawing_export.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <string_view>

#include "studio/base/output.h"
#include "studio/base/text.h"
#include "studio/drawing/svg_drawing.h"
#include "studio/export/svg_tiles.h"

namespace {

constexpr size_t kWrittenAtOnce = 1 << 16;

/// What a group takes over from the image that it stands for, besides its style.
constexpr const char* kKept[] = {"transform",  "transform-origin", "class",   "clip-path",
                                 "mask",       "filter",           "opacity", "display",
                                 "visibility", "systemLanguage"};

/// What the group's context could give to its tiles but never gave to the image.
constexpr const char* kOwnStyle = "fill-opacity:1;stroke:none";

/// As the value of an attribute, in ASCII, which every supported encoding contains.
std::string Escaped(const QString& text) {
  std::string escaped;
  for (const char32_t c : text.toStdU32String()) {
    const bool isPlain = c >= 32 && c < 127 && c != '&' && c != '<' && c != '>' && c != '"';
    escaped += isPlain ? std::string(1, char(c)) : "&#" + std::to_string(uint32_t(c)) + ';';
  }
  return escaped;
}

std::string AttributeText(const char* name, const QString& value) {
  return std::string(" ") + name + "=\"" + Escaped(value) + '"';
}

/// Writes ASCII text in the encoding of the document.
class DocumentWriter {
 public:
  DocumentWriter(const SvgDrawing& drawing, QIODevice& device) : drawing(drawing), device(device) {}

  void Copy(qsizetype start, qsizetype end) {
    WriteAll(device, QByteArrayView(drawing.Bytes()).sliced(start, end - start));
  }

  void Write(std::string_view ascii) {
    if (!drawing.IsUtf16()) return WriteAll(device, ascii);
    QByteArray wide;
    for (const char c : ascii) {
      if (drawing.IsBigEndian()) wide += '\0';
      wide += c;
      if (!drawing.IsBigEndian()) wide += '\0';
    }
    WriteAll(device, wide);
  }

 private:
  const SvgDrawing& drawing;
  QIODevice& device;
};

/// The decimals with which a number in user units is exact to a ten thousandth of a point, as far
/// as a number can have so many digits.
int DecimalsFor(const Placement& placement, QSizeF mosaicSize) {
  constexpr int kMostDigits = 17;
  const auto& [box, size, visible] = placement;
  const QSizeF units(box.width() / size.width(), box.height() / size.height());
  const double largest = std::max({1.0, std::abs(box.x()) + mosaicSize.width() * units.width(),
                                   std::abs(box.y()) + mosaicSize.height() * units.height()});
  const int wanted = 4 - int(std::floor(std::log10(std::min(units.width(), units.height()))));
  return std::clamp(std::min(wanted, kMostDigits - int(std::ceil(std::log10(largest)))), 0,
                    kMostDecimals);
}

/// Writes one group of tiles.
class GroupSink final : public MosaicSink {
 public:
  GroupSink(DocumentWriter& writer, const SvgDrawing& drawing, const PlacedMosaic& placed,
            const std::string& id);

  void AddRow(std::span<const QRgb> row) override {
    tiles.AppendRow(row, text);
    if (text.size() >= kWrittenAtOnce) Flush();
  }

  void Finish() override {
    text += "</" + prefix + "g>";
    Flush();
  }

 private:
  static SvgTiles::Place PlaceOf(const SvgDrawing& drawing, const PlacedMosaic& placed);

  void Flush() {
    writer.Write(text);
    text.clear();
  }

  DocumentWriter& writer;
  const std::string prefix;
  SvgTiles tiles;
  std::string text;  // that is not written yet
};

SvgTiles::Place GroupSink::PlaceOf(const SvgDrawing& drawing, const PlacedMosaic& placed) {
  const auto& [box, size, visible] = placed.placement;
  SvgTiles::Place place;
  place.origin = box.topLeft();
  place.unitsPerPoint = {box.width() / size.width(), box.height() / size.height()};
  place.decimals = DecimalsFor(placed.placement, placed.mosaic->geometry.size);
  place.prefix = placed.image->prefix;
  place.hasStyleSheet = drawing.HasStyleSheet();
  return place;
}

GroupSink::GroupSink(DocumentWriter& writer, const SvgDrawing& drawing, const PlacedMosaic& placed,
                     const std::string& id)
    : writer(writer),
      prefix(placed.image->prefix),
      tiles(placed.mosaic->geometry, PlaceOf(drawing, placed)) {
  const ImageElement& image = *placed.image;
  text = "<" + prefix + "g" + AttributeText("id", QString::fromStdString(id));
  for (const char* name : kKept) {
    if (const std::string& value = image.Attribute(name); !value.empty())
      text += AttributeText(name, QString::fromStdString(value));
  }
  QString style = QString::fromStdString(image.Attribute("style")).trimmed();
  if (!style.isEmpty() && !style.endsWith(';')) style += ';';
  style += kOwnStyle;
  // Tiles that touch must not let anything shine through between them.
  if (placed.mosaic->geometry.TilesTouch()) style += ";shape-rendering:crispEdges";
  text += AttributeText("style", style) + ">\n<" + prefix + "title>" +
          Escaped(Text("$$$/Studio/Drawing/Title=Mosaic of %1", image.Name())) + "</" + prefix +
          "title>\n";
}

}  // namespace

bool WriteDrawing(const SvgDrawing& drawing, std::vector<PlacedMosaic> mosaics, QIODevice& device,
                  const GoOn& goOn) {
  std::sort(mosaics.begin(), mosaics.end(), [](const auto& one, const auto& other) {
    return one.image->start < other.image->start;
  });
  DocumentWriter writer(drawing, device);
  std::set<std::string> ids;  // that this adds
  qsizetype copied = 0;
  int rowsBefore = 0;
  for (const PlacedMosaic& placed : mosaics) {
    const std::string name = placed.image->Attribute("id");
    const std::string base = (name.empty() ? "image" : name) + "-mosaic";
    std::string id = base;
    for (int i = 2; drawing.HasId(id) || !ids.insert(id).second; ++i)
      id = base + '-' + std::to_string(i);

    writer.Copy(copied, placed.mosaic->keepsPicture ? placed.image->end : placed.image->start);
    copied = placed.image->end;
    GroupSink sink(writer, drawing, placed, id);
    if (!WriteMosaic(*placed.mosaic, sink, [&](int rows) { return goOn(rowsBefore + rows); }))
      return false;
    rowsBefore += placed.mosaic->geometry.tilesDown;
  }
  writer.Copy(copied, drawing.Bytes().size());
  return true;
}
