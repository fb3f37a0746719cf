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

/// A picture in a drawing: an `image` element.
struct ImageElement {
  qsizetype start = 0;  // its first byte in the document
  qsizetype end = 0;    // behind its last one
  size_t entry = 0;     // of the drawing's table of elements
  std::string prefix;   // of its name, with the colon; empty where SVG is the default namespace
  /// Decoded. Names of these namespaces have the prefixes "xlink", "inkscape" and "sodipodi",
  /// whatever the document calls them; attributes of other namespaces are left out.
  std::map<std::string, std::string> attributes;
  /// From its user units, those inside its own `transform`, to points on the page. Has no
  /// translation.
  QTransform toPage;
  QSizeF viewport;      // what percentages count from, in user units
  double fontSize = 0;  // in user units
  /// Why its place cannot be computed; empty when it can.
  QString problem;

  /// Empty when it has none.
  const std::string& Attribute(const std::string& name) const;
  /// A presentation attribute; a declaration of the `style` attribute comes before it.
  std::string Property(const std::string& name) const;

  QString Id() const { return QString::fromStdString(Attribute("id")); }
  /// What people call it: its label, or else its ID, or else "image".
  QString Name() const;
};

/// An SVG document: its bytes and the images in it.
class SvgDrawing {
 public:
  /// Reads a document of up to 512 MB in UTF-8, UTF-16, ISO-8859-1 or US-ASCII. Entities of its
  /// own are expanded for reading, up to a hundred times its size; nothing outside the file is ever
  /// read. Throws StudioError.
  static SvgDrawing Read(const QString& path);

  const QString& Path() const { return path; }
  const QByteArray& Bytes() const { return bytes; }
  bool IsUtf16() const { return isUtf16; }
  bool IsBigEndian() const { return isBigEndian; }
  /// Whether rules of a style sheet could change the look of what is added.
  bool HasStyleSheet() const { return hasStyleSheet; }

  /// In the order of the document; those inside `image` elements are not shown and left out.
  const std::vector<ImageElement>& Images() const { return images; }

  /// Throws StudioError when the element is missing or not an `image`.
  const ImageElement& Image(const QString& id) const;

  /// The images that these elements are or contain, each once, in the order of `ids`. IDs that the
  /// document does not have are passed over.
  std::vector<const ImageElement*> ImagesIn(const QStringList& ids) const;

  bool HasId(const std::string& id) const { return byId.count(id) > 0; }

 private:
  friend class DrawingReader;

  /// An element with an ID, or an image.
  struct Entry {
    std::string name;  // of its kind, as in "rect"
    size_t parent;     // the nearest entry around it; kNoEntry for none
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
  std::unordered_map<std::string, size_t> byId;  // the first element with an ID counts
};
