#pragma once

#include <QByteArray>
#include <QSizeF>
#include <QString>
#include <QTransform>
#include <map>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

/// An `image` element of a drawing. `SvgDrawing` owns it; callers keep pointers to it for as long
/// as they keep the drawing.
struct ImageElement {
  qsizetype start = 0;  // offset of its first byte in the document
  qsizetype end = 0;    // offset after its last byte
  size_t entry = 0;     // index in the drawing's table of elements
  std::string prefix;   // of its name, with the colon; empty where SVG is the default namespace
  bool declaresPrefix = false;  // the element itself has the `xmlns` attribute of its prefix
  bool isInSwitch = false;      // its parent is a `switch`, which shows one child only
  /// Decoded attribute values by name. The prefixes are "xlink:", "inkscape:" and "sodipodi:",
  /// whichever prefixes the document uses; attributes of other namespaces are left out.
  std::map<std::string, std::string> attributes;
  /// From its user units, those inside its own `transform`, to points on the page. Has no
  /// translation.
  QTransform toPage;
  QSizeF viewport;      // 100 % of width and height, in user units
  double fontSize = 0;  // in user units
  QString problem;      // why its position cannot be computed; empty if it can

  /// Empty if the element lacks the attribute.
  const std::string& Attribute(const std::string& name) const;
  /// The value of a presentation attribute. A declaration in the `style` attribute overrides it.
  std::string Property(const std::string& name) const;

  QString Id() const { return QString::fromStdString(Attribute("id")); }
  /// The name for the user: the label, or else the ID, or else "image".
  QString Name() const;
};

/// An SVG document: its bytes and its images. Console and window share one between all artworks
/// that are made of its images; it is immutable, so any thread may read it.
class SvgDrawing {
 public:
  /// Reads a document of up to 512 MB in UTF-8, UTF-16, ISO-8859-1 or US-ASCII. Internal entities
  /// are expanded, up to a hundred times the document's size; external ones are never read. Throws
  /// StudioError.
  static SvgDrawing Read(const QString& path);

  const QString& Path() const { return path; }
  const QByteArray& Bytes() const { return bytes; }
  bool IsUtf16() const { return isUtf16; }
  bool IsBigEndian() const { return isBigEndian; }
  /// Whether rules of a style sheet could apply to added elements.
  bool HasStyleSheet() const { return hasStyleSheet; }

  /// In document order. An `image` inside an `image` is never shown and left out.
  const std::vector<ImageElement>& Images() const { return images; }

  /// Throws StudioError when the element is missing or not an `image`.
  const ImageElement& Image(const QString& id) const;

  /// The images among these elements and their descendants, each once, in the order of `ids`. IDs
  /// that the document lacks are ignored.
  std::vector<const ImageElement*> ImagesIn(const QStringList& ids) const;

  bool HasId(const std::string& id) const { return byId.count(id) > 0; }
  /// Whether references to the image's ID mean this image. False without an ID, and for an ID that
  /// an earlier element has, too.
  bool IsReferable(const ImageElement& image) const;

 private:
  friend class DrawingReader;

  /// An element with an ID, or an image.
  struct Entry {
    std::string name;  // without prefix, as in "rect"
    size_t parent;     // index of the nearest ancestor with an entry, or kNoEntry
  };
  static constexpr size_t kNoEntry = size_t(-1);

  explicit SvgDrawing(QString path) : path(std::move(path)) {}

  QString path;
  QByteArray bytes;
  bool isUtf16 = false;
  bool isBigEndian = false;
  bool hasStyleSheet = false;
  std::vector<ImageElement> images;
  std::vector<Entry> entries;
  std::unordered_map<std::string, size_t> byId;  // of several elements with one ID the first
};
