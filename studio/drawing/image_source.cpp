#include "studio/drawing/image_source.h"

#include <QByteArray>
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string_view>

#include "studio/base/file_name.h"
#include "studio/base/studio_error.h"
#include "studio/drawing/svg_drawing.h"

namespace {

namespace fs = std::filesystem;

/// The link of an image. `href` overrides `xlink:href`, its older name.
std::string_view Reference(const ImageElement& image) {
  const std::string& href = image.Attribute("href");
  return href.empty() ? image.Attribute("xlink:href") : href;
}

bool StartsWith(std::string_view text, std::string_view lowerStart) {
  return text.size() >= lowerStart.size() &&
         std::equal(lowerStart.begin(), lowerStart.end(), text.begin(),
                    [](char lower, char c) { return lower == std::tolower(uint8_t(c)); });
}

/// Whether the link starts with a URL scheme, as in "http:".
bool HasScheme(std::string_view reference) {
  const size_t colon = reference.find(':');
  return colon != std::string_view::npos && colon > 0 &&
         std::all_of(reference.begin(), reference.begin() + ptrdiff_t(colon), [](char c) {
           return std::isalnum(uint8_t(c)) || c == '+' || c == '-' || c == '.';
         });
}

QByteArray Bytes(std::string_view text) {
  return QByteArray(text.data(), qsizetype(text.size()));
}

/// The content of a `data:` URL, see RFC 2397.
QByteArray DataOf(std::string_view url) {
  const size_t comma = std::min(url.find(','), url.size());
  const std::string_view head = url.substr(0, comma);
  QByteArray content = Bytes(url.substr(std::min(comma + 1, url.size())));
  const bool isBase64 = QByteArray(Bytes(head).trimmed().toLower()).endsWith(";base64");
  if (!isBase64 || content.contains('%')) content = QByteArray::fromPercentEncoding(content);
  return isBase64 ? QByteArray::fromBase64(content) : content;
}

bool Exists(const fs::path& path) {
  std::error_code error;
  return exists(path, error);
}

}  // namespace

QString LinkedFile(const SvgDrawing& drawing, const ImageElement& image) {
  std::string_view reference = Reference(image);
  if (reference.empty() || reference.front() == '#')
    throw StudioError("$$$/Studio/Drawing/NoPicture=the image %1 has no link to a picture",
                      image.Name());
  if (StartsWith(reference, "data:")) return {};
  if (StartsWith(reference, "file:")) {
    reference.remove_prefix(5);
    if (StartsWith(reference, "//localhost/")) reference.remove_prefix(11);
    if (StartsWith(reference, "///")) reference.remove_prefix(2);
  }
  if (HasScheme(reference) || StartsWith(reference, "//")) {
    throw StudioError(
        "$$$/Studio/Drawing/NotAFile=the image %1 links to %2, which is not a file of this "
        "computer",
        image.Name(), FileName(Bytes(reference)).left(200));
  }
  const fs::path folder = SystemPath(drawing.Path()).parent_path();
  const QByteArray name =
      QByteArray::fromPercentEncoding(Bytes(reference.substr(0, reference.find('#'))));
  fs::path path = folder / name.toStdString();
  // Inkscape tries these two next: the link without decoding, and the absolute path that it saved.
  for (const std::string& other : {std::string(reference), image.Attribute("sodipodi:absref")}) {
    if (!Exists(path) && !other.empty() && Exists(folder / other)) path = folder / other;
  }
  return FileName(path.c_str());
}

Picture ReadImage(const SvgDrawing& drawing, const ImageElement& image,
                  const std::function<bool()>& isStopped) {
  const QString file = LinkedFile(drawing, image);
  return Picture::Read(file.isEmpty() ? PictureFile::OfBytes(DataOf(Reference(image)), image.Name())
                                      : PictureFile(file),
                       isStopped);
}
