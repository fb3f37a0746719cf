#include "studio/drawing/drawing_export.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <string_view>

#include "studio/base/output.h"
#include "studio/base/studio_error.h"
#include "studio/drawing/svg_values.h"
#include "studio/export/mosaic_export.h"
#include "studio/export/svg_sink.h"

namespace {

constexpr size_t kBufferSize = 1 << 16;

/// Attributes of the image that its group gets, besides `style`.
constexpr const char* kCopiedAttributes[] = {"transform",
                                             "transform-origin",
                                             "class",
                                             "clip-path",
                                             "mask",
                                             "filter",
                                             "opacity",
                                             "display",
                                             "visibility",
                                             "requiredFeatures",
                                             "requiredExtensions",
                                             "systemLanguage"};

/// Properties that tiles would inherit although they have no effect on an image.
constexpr std::pair<const char*, const char*> kOwnStyle[] = {{"fill-opacity", "1"},
                                                             {"stroke", "none"}};

/// An attribute value in ASCII, which every supported encoding contains.
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

/// Writes copies of the document's bytes, and ASCII text in the document's encoding.
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

/// The number of decimals that makes coordinates exact to a ten thousandth of a point, limited to
/// the 17 significant digits of a double.
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
    if (text.size() >= kBufferSize) Flush();
  }

  void Finish() override {
    text += "</" + prefix + "g>";
    Flush();
  }

 private:
  static SvgTiles::Place PlaceOf(const SvgDrawing& drawing, const PlacedMosaic& placed);
  static QString StyleOf(const PlacedMosaic& placed);

  void Flush() {
    writer.Write(text);
    text.clear();
  }

  DocumentWriter& writer;
  const std::string prefix;
  SvgTiles tiles;
  std::string text;  // a buffer, not written yet
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

/// The image's declarations, overridden by those that tiles need.
QString GroupSink::StyleOf(const PlacedMosaic& placed) {
  std::map<std::string, Declaration> style = ParseStyle(placed.image->Attribute("style"));
  for (const auto& [name, value] : kOwnStyle) style[name] = {value};
  // Tiles that touch must not let the background show through between them.
  if (placed.mosaic->geometry.TilesTouch()) style["shape-rendering"] = {"crispEdges"};
  std::string text;
  for (const auto& [name, declaration] : style) {
    text += (text.empty() ? "" : ";") + name + ':' + declaration.value;
    if (declaration.isImportant) text += " !important";
  }
  return QString::fromStdString(text);
}

GroupSink::GroupSink(DocumentWriter& writer, const SvgDrawing& drawing, const PlacedMosaic& placed,
                     const std::string& id)
    : writer(writer),
      prefix(placed.image->prefix),
      tiles(placed.mosaic->geometry, PlaceOf(drawing, placed)) {
  const ImageElement& image = *placed.image;
  text = "<" + prefix + "g";
  if (image.declaresPrefix) {
    const std::string name =
        prefix.empty() ? "xmlns" : "xmlns:" + prefix.substr(0, prefix.size() - 1);
    text += AttributeText(name.c_str(), "http://www.w3.org/2000/svg");
  }
  text += AttributeText("id", QString::fromStdString(id));
  for (const char* name : kCopiedAttributes) {
    if (const std::string& value = image.Attribute(name); !value.empty())
      text += AttributeText(name, QString::fromStdString(value));
  }
  text += AttributeText("style", StyleOf(placed)) + ">\n<" + prefix + "title>" +
          Escaped(Text("$$$/Studio/Drawing/Title=Mosaic of %1", image.Name())) + "</" + prefix +
          "title>\n";
}

/// The ID of a group. A group that replaces its image takes over the image's ID, so that clones and
/// other references show the mosaic. `added` contains the IDs of earlier groups.
std::string GroupId(const SvgDrawing& drawing, const PlacedMosaic& placed,
                    std::set<std::string>& added) {
  const std::string& name = placed.image->Attribute("id");
  if (!placed.mosaic->keepsPicture && drawing.IsReferable(*placed.image)) return name;
  const std::string base = (name.empty() ? "image" : name) + "-mosaic";
  std::string id = base;
  for (int i = 2; drawing.HasId(id) || !added.insert(id).second; ++i)
    id = base + '-' + std::to_string(i);
  return id;
}

void CheckKept(const PlacedMosaic& placed) {
  if (!placed.mosaic->keepsPicture || !placed.image->isInSwitch) return;
  throw StudioError(
      "$$$/Studio/Drawing/InSwitch=the image %1 is in a \"switch\", which shows one element only; "
      "delete the raster to show its mosaic",
      placed.image->Name());
}

}  // namespace

double EstimatedBytes(const SvgDrawing& drawing, const std::vector<PlacedMosaic>& mosaics) {
  auto bytes = double(drawing.Bytes().size());
  for (const PlacedMosaic& placed : mosaics) {
    Mosaic tiles = *placed.mosaic;
    tiles.below = {};  // part of the drawing
    bytes += EstimatedBytes(tiles, ExportKindOf(".svg"));
  }
  return bytes;
}

bool WriteDrawing(const SvgDrawing& drawing, std::vector<PlacedMosaic> mosaics, QIODevice& device,
                  const GoOn& goOn) {
  std::sort(mosaics.begin(), mosaics.end(), [](const auto& one, const auto& other) {
    return one.image->start < other.image->start;
  });
  DocumentWriter writer(drawing, device);
  std::set<std::string> addedIds;
  qsizetype copied = 0;
  int rowsBefore = 0;
  for (const PlacedMosaic& placed : mosaics) {
    CheckKept(placed);
    writer.Copy(copied, placed.mosaic->keepsPicture ? placed.image->end : placed.image->start);
    copied = placed.image->end;
    GroupSink sink(writer, drawing, placed, GroupId(drawing, placed, addedIds));
    if (!WriteMosaic(*placed.mosaic, sink, [&](int rows) { return goOn(rowsBefore + rows); }))
      return false;
    rowsBefore += placed.mosaic->geometry.tilesDown;
  }
  writer.Copy(copied, drawing.Bytes().size());
  return true;
}
