#include "studio/drawing/svg_drawing.h"

#include <QStringList>
#include <algorithm>

#include "studio/base/studio_error.h"
#include "studio/drawing/svg_values.h"

const std::string& ImageElement::Attribute(const std::string& name) const {
  static const std::string kNone;
  const auto found = attributes.find(name);
  return found == attributes.end() ? kNone : found->second;
}

std::string ImageElement::Property(const std::string& name) const {
  const auto style = ParseStyle(Attribute("style"));
  const auto found = style.find(name);
  return found == style.end() ? Attribute(name) : found->second.value;
}

QString ImageElement::Name() const {
  for (const char* attribute : {"inkscape:label", "id"}) {
    if (const std::string& name = Attribute(attribute); !name.empty())
      return QString::fromStdString(name);
  }
  return Text("$$$/Studio/Drawing/UnnamedImage=image");
}

const ImageElement& SvgDrawing::Image(const QString& id) const {
  const auto found = byId.find(id.toStdString());
  if (found == byId.end())
    throw StudioError("$$$/Studio/Drawing/NoElement=there is no element %1 in %2", id, path);
  const auto image = std::find_if(images.begin(), images.end(), [&](const ImageElement& element) {
    return element.entry == found->second;
  });
  if (image != images.end()) return *image;
  throw StudioError("$$$/Studio/Drawing/NotAnImage=the element %1 of %2 is not an image but \"%3\"",
                    id, path, QString::fromStdString(entries[found->second].name));
}

bool SvgDrawing::IsReferable(const ImageElement& image) const {
  const auto found = byId.find(image.Attribute("id"));
  return found != byId.end() && found->second == image.entry;
}

std::vector<const ImageElement*> SvgDrawing::ImagesIn(const QStringList& ids) const {
  std::vector<const ImageElement*> found;
  for (const QString& id : ids) {
    const auto element = byId.find(id.toStdString());
    if (element == byId.end()) continue;
    for (const ImageElement& image : images) {
      size_t entry = image.entry;
      while (entry != kNoEntry && entry != element->second) entry = entries[entry].parent;
      const bool isNew = std::find(found.begin(), found.end(), &image) == found.end();
      if (entry != kNoEntry && isNew) found.push_back(&image);
    }
  }
  return found;
}
