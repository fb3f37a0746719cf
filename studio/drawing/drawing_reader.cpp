#include <expat.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/nrvcore/file.h"
#include "studio/base/file_name.h"
#include "studio/base/studio_error.h"
#include "studio/drawing/svg_drawing.h"
#include "studio/drawing/svg_values.h"

namespace {

constexpr qint64 kLargestDocument = qint64(512) << 20;
constexpr size_t kMostLevels = 1000;
constexpr double kPointsPerPixel = 0.75;
constexpr double kDefaultFontSize = 16;
constexpr QSizeF kDefaultViewport(300, 150);  // the size of replaced elements in CSS

constexpr char kSeparator = '\n';  // never part of a namespace: in attributes it becomes a space
constexpr std::string_view kSvg = "http://www.w3.org/2000/svg";
constexpr std::string_view kXlink = "http://www.w3.org/1999/xlink";
constexpr std::string_view kInkscape = "http://www.inkscape.org/namespaces/inkscape";
constexpr std::string_view kSodipodi = "http://sodipodi.sourceforge.net/DTD/sodipodi-0.dtd";

/// A name as expat reports it with triplets: namespace, local name and prefix.
struct QualifiedName {
  explicit QualifiedName(std::string_view text) {
    const size_t first = text.find(kSeparator);
    if (first == std::string_view::npos) {
      local = text;
      return;
    }
    space = text.substr(0, first);
    local = text.substr(first + 1);
    if (const size_t second = local.find(kSeparator); second != std::string_view::npos) {
      prefix = local.substr(second + 1);
      local = local.substr(0, second);
    }
  }

  std::string_view space;  // the namespace; empty if there is none
  std::string_view local;
  std::string_view prefix;
};

/// The value of an attribute without a namespace; empty if it is missing.
std::string_view Value(const XML_Char** attributes, const char* name) {
  for (; *attributes; attributes += 2) {
    if (std::strcmp(attributes[0], name) == 0) return attributes[1];
  }
  return {};
}

/// The value of a property, from the `style` attribute or else the presentation attribute. Parses
/// the style only if it contains the name, because most elements have a style.
std::string PropertyOf(const XML_Char** attributes, const char* name) {
  const std::string_view style = Value(attributes, "style");
  if (style.find(name) != std::string_view::npos) {
    const auto declarations = ParseStyle(style);
    if (const auto found = declarations.find(name); found != declarations.end())
      return found->second.value;
  }
  return std::string(Value(attributes, name));
}

[[noreturn]] void Refuse(const QString& path, const QString& reason) {
  throw StudioError("$$$/Studio/Drawing/Unreadable=the drawing %1 cannot be read: %2", path,
                    reason);
}

}  // namespace

/// Fills a SvgDrawing from the parser's events. Exceptions must not pass through the parser, which
/// is written in C: `Guard` stores the first one and stops the parser, and `Run` throws it again.
class DrawingReader {
 public:
  explicit DrawingReader(SvgDrawing& drawing);

  void Run();

 private:
  /// The state inside an open element; the fields are those of ImageElement. Children inherit it,
  /// except for `isSwitch`.
  struct Level {
    QTransform toPage;
    QSizeF viewport;
    double fontSize = kDefaultFontSize;
    size_t entry = SvgDrawing::kNoEntry;
    QString problem;
    bool isSwitch = false;  // the element is a `switch`
  };

  void OnStart(QualifiedName name, const XML_Char** attributes);
  void OnEnd();
  void EnterViewport(Level& level, const XML_Char** attributes);
  void AddImage(QualifiedName name, const XML_Char** attributes, const Level& level);
  template <typename Work>
  void Guard(Work work);

  SvgDrawing& drawing;
  std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser;
  std::vector<Level> levels;
  std::vector<std::string> svgPrefixes;  // that the next element declares for SVG, with the colon
  size_t imageDepth = 0;                 // number of levels in the open image; 0 outside of images
  std::exception_ptr failure;
};

DrawingReader::DrawingReader(SvgDrawing& drawing)
    : drawing(drawing), parser(XML_ParserCreateNS(nullptr, kSeparator), XML_ParserFree) {
  if (!parser) throw std::bad_alloc();
  XML_SetUserData(parser.get(), this);
  XML_SetReturnNSTriplet(parser.get(), XML_TRUE);
  XML_SetElementHandler(
      parser.get(),
      [](void* self, const XML_Char* name, const XML_Char** attributes) {
        auto& reader = *static_cast<DrawingReader*>(self);
        reader.Guard([&] { reader.OnStart(QualifiedName(name), attributes); });
      },
      [](void* self, const XML_Char*) {
        auto& reader = *static_cast<DrawingReader*>(self);
        reader.Guard([&] { reader.OnEnd(); });
      });
  XML_SetStartNamespaceDeclHandler(parser.get(), [](void* self, const XML_Char* prefix,
                                                    const XML_Char* space) {
    auto& reader = *static_cast<DrawingReader*>(self);
    if (space != nullptr && space == kSvg)
      reader.Guard([&] { reader.svgPrefixes.push_back(prefix ? std::string(prefix) + ':' : ""); });
  });
  XML_SetProcessingInstructionHandler(
      parser.get(), [](void* self, const XML_Char* target, const XML_Char*) {
        if (std::strcmp(target, "xml-stylesheet") == 0)
          static_cast<DrawingReader*>(self)->drawing.hasStyleSheet = true;
      });
}

template <typename Work>
void DrawingReader::Guard(Work work) {
  if (failure) return;
  try {
    work();
  } catch (...) {
    failure = std::current_exception();
    XML_StopParser(parser.get(), XML_FALSE);
  }
}

void DrawingReader::Run() {
  const QByteArray& bytes = drawing.bytes;
  const auto status = XML_Parse(parser.get(), bytes.constData(), int(bytes.size()), XML_TRUE);
  if (failure) std::rethrow_exception(failure);
  if (status != XML_STATUS_ERROR) return;
  const QString line = QString::number(XML_GetCurrentLineNumber(parser.get()));
  switch (XML_GetErrorCode(parser.get())) {
    case XML_ERROR_NO_MEMORY:
      throw std::bad_alloc();
    case XML_ERROR_UNKNOWN_ENCODING:
      throw StudioError(
          "$$$/Studio/Drawing/Encoding=its encoding is not supported; save it in UTF-8");
    case XML_ERROR_AMPLIFICATION_LIMIT_BREACH:
      throw StudioError("$$$/Studio/Drawing/Amplification=its entities expand beyond the limit");
    default:
      throw StudioError("$$$/Studio/Drawing/NotXml=line %1 is not well-formed XML", line);
  }
}

void DrawingReader::OnStart(QualifiedName name, const XML_Char** attributes) {
  if (levels.size() >= kMostLevels) {
    throw StudioError("$$$/Studio/Drawing/Depth=its elements are nested more than %1 deep",
                      QString::number(kMostLevels));
  }
  const bool isSvg = name.space == kSvg;
  const bool isRoot = levels.empty();
  if (isRoot && !(isSvg && name.local == "svg"))
    throw StudioError("$$$/Studio/Drawing/NotSvg=it is not an SVG document");

  Level level = isRoot ? Level() : levels.back();
  level.isSwitch = isSvg && name.local == "switch";
  if (isRoot) level.toPage = QTransform::fromScale(kPointsPerPixel, kPointsPerPixel);
  const bool isImage = isSvg && name.local == "image";
  if (const std::string_view id = Value(attributes, "id"); !id.empty() || isImage) {
    drawing.entries.push_back({std::string(name.local), level.entry});
    level.entry = drawing.entries.size() - 1;
    if (!id.empty()) drawing.byId.emplace(id, level.entry);
  }
  if (isSvg && name.local == "style") drawing.hasStyleSheet = true;
  try {
    const std::string fontSize = PropertyOf(attributes, "font-size");
    if (const auto size = ParseLength(fontSize, {level.fontSize, level.fontSize}))
      level.fontSize = *size;
  } catch (const StudioError&) {
    // Keywords such as "small" are ignored; images with lengths in em are rare.
  }
  try {
    level.toPage = ParseTransform(PropertyOf(attributes, "transform")) * level.toPage;
    if (isSvg && name.local == "svg") EnterViewport(level, attributes);
  } catch (const StudioError& error) {
    level.problem = error.what();
  }
  if (isImage && imageDepth == 0) AddImage(name, attributes, level);
  levels.push_back(level);
  svgPrefixes.clear();
}

/// Applies the size and `viewBox` of an `svg` element to its level.
void DrawingReader::EnterViewport(Level& level, const XML_Char** attributes) {
  const bool isRoot = levels.empty();
  const auto viewBox = ParseViewBox(Value(attributes, "viewBox"));
  const QSizeF outer = !isRoot ? level.viewport : viewBox ? viewBox->size() : kDefaultViewport;
  auto width = ParseLength(PropertyOf(attributes, "width"), {outer.width(), level.fontSize});
  auto height = ParseLength(PropertyOf(attributes, "height"), {outer.height(), level.fontSize});
  if (isRoot && viewBox) {
    const double ratio = viewBox->width() / viewBox->height();
    if (width && !height) height = *width / ratio;
    if (height && !width) width = *height * ratio;
  }
  const QSizeF size(width.value_or(outer.width()), height.value_or(outer.height()));
  level.viewport = viewBox ? viewBox->size() : size;
  if (!viewBox) return;
  const auto ratio = AspectRatio::Parse(Value(attributes, "preserveAspectRatio"));
  const QRectF fit = ratio.Fit(viewBox->size(), QRectF(QPointF(), size));
  level.toPage =
      QTransform::fromScale(fit.width() / viewBox->width(), fit.height() / viewBox->height()) *
      level.toPage;
}

void DrawingReader::AddImage(QualifiedName name, const XML_Char** attributes, const Level& level) {
  imageDepth = levels.size() + 1;
  ImageElement& image = drawing.images.emplace_back();
  image.start = qsizetype(XML_GetCurrentByteIndex(parser.get()));
  image.entry = level.entry;
  if (!name.prefix.empty()) image.prefix = std::string(name.prefix) + ':';
  image.declaresPrefix = std::count(svgPrefixes.begin(), svgPrefixes.end(), image.prefix) > 0;
  image.isInSwitch = levels.back().isSwitch;
  image.toPage = level.toPage;
  image.viewport = level.viewport;
  image.fontSize = level.fontSize;
  image.problem = level.problem;
  // For an element inside an entity, expat reports the offset of the reference, which begins with
  // "&". Two bytes hold the character in UTF-16 of either byte order.
  if (!drawing.bytes.mid(image.start, 2).contains('<'))
    image.problem = ::Text("$$$/Studio/Drawing/InEntity=it is part of an entity of the document");
  for (; *attributes; attributes += 2) {
    const QualifiedName attribute{attributes[0]};
    const char* const prefix = attribute.space.empty()        ? ""
                               : attribute.space == kXlink    ? "xlink:"
                               : attribute.space == kInkscape ? "inkscape:"
                               : attribute.space == kSodipodi ? "sodipodi:"
                                                              : nullptr;
    if (prefix) image.attributes[prefix + std::string(attribute.local)] = attributes[1];
  }
}

void DrawingReader::OnEnd() {
  if (levels.size() == imageDepth) {
    drawing.images.back().end =
        qsizetype(XML_GetCurrentByteIndex(parser.get())) + XML_GetCurrentByteCount(parser.get());
    imageDepth = 0;
  }
  levels.pop_back();
}

SvgDrawing SvgDrawing::Read(const QString& path) {
  SvgDrawing drawing(path);
  try {
    drawing.bytes = QByteArray::fromStdString(
        nrvcore::ReadFile(SystemPath(path), nrvcore::FileKind::kRegular, kLargestDocument));
    if (drawing.bytes.startsWith("\x1f\x8b"))
      throw StudioError("$$$/Studio/Drawing/Packed=it is compressed; save it as plain SVG");
    const auto byte = [&](qsizetype at) {
      return at < drawing.bytes.size() ? uint8_t(drawing.bytes[at]) : 0;
    };
    // UTF-16 begins with a byte order mark or with "<".
    drawing.isBigEndian = (byte(0) == 0xFE && byte(1) == 0xFF) || (byte(0) == 0 && byte(1) == '<');
    drawing.isUtf16 = drawing.isBigEndian || (byte(0) == 0xFF && byte(1) == 0xFE) ||
                      (byte(0) == '<' && byte(1) == 0);
    DrawingReader(drawing).Run();
  } catch (const nrvcore::FileError& error) {
    Refuse(path, FileName(error.Reason()));
  } catch (const StudioError& error) {
    Refuse(path, error.what());
  }
  return drawing;
}
