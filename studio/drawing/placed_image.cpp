#include "studio/drawing/placed_image.h"

#include <cmath>
#include <utility>

#include "studio/base/studio_error.h"
#include "studio/drawing/image_source.h"
#include "studio/drawing/svg_values.h"

namespace {

/// The rectangle of `x`, `y`, `width` and `height`. A missing width or height follows from the
/// other one and the proportions of the picture; without both, a pixel is a user unit.
QRectF ViewportOf(const ImageElement& image, QSizeF pixels) {
  const LengthBase across{image.viewport.width(), image.fontSize};
  const LengthBase down{image.viewport.height(), image.fontSize};
  const auto width = ParseLength(image.Property("width"), across);
  const auto height = ParseLength(image.Property("height"), down);
  const double ratio = pixels.width() / pixels.height();
  const double derivedWidth = height ? *height * ratio : pixels.width();
  const double derivedHeight = width ? *width / ratio : pixels.height();
  return {ParseLength(image.Property("x"), across).value_or(0),
          ParseLength(image.Property("y"), down).value_or(0), width.value_or(derivedWidth),
          height.value_or(derivedHeight)};
}

/// The pixels inside the viewport, for a picture that is scaled to the rectangle `fit`.
QRect VisiblePixels(const QRectF& fit, const QRectF& viewport, QSize pixels) {
  const QRectF part = fit & viewport;
  const auto across = [&](double x) {
    return int(std::lround((x - fit.left()) / fit.width() * pixels.width()));
  };
  const auto down = [&](double y) {
    return int(std::lround((y - fit.top()) / fit.height() * pixels.height()));
  };
  const QRect visible(QPoint(across(part.left()), down(part.top())),
                      QPoint(across(part.right()) - 1, down(part.bottom()) - 1));
  return visible & QRect(QPoint(), pixels);
}

Placement PlacementIn(const ImageElement& image, QSize pixels) {
  if (!image.problem.isEmpty()) throw StudioError(image.problem);
  const QRectF viewport = ViewportOf(image, pixels);
  const QRectF fit =
      AspectRatio::Parse(image.Attribute("preserveAspectRatio")).Fit(pixels, viewport);
  Placement placement;
  placement.box = fit & viewport;
  placement.visible = VisiblePixels(fit, viewport, pixels);
  const QTransform& m = image.toPage;
  placement.size = {placement.box.width() * std::hypot(m.m11(), m.m12()),
                    placement.box.height() * std::hypot(m.m21(), m.m22())};
  if (!(viewport.width() > 0 && viewport.height() > 0) || placement.visible.isEmpty() ||
      !(std::abs(m.determinant()) > 0) || !(placement.size.width() > 0) ||
      !(placement.size.height() > 0)) {
    throw StudioError("$$$/Studio/Drawing/NoArea=it covers no area of the page");
  }
  return placement;
}

}  // namespace

Placement Placement::Of(const ImageElement& image, QSize pixels) {
  try {
    return PlacementIn(image, pixels);
  } catch (const StudioError& error) {
    throw StudioError("$$$/Studio/Drawing/Unusable=the image %1 cannot be used: %2", image.Name(),
                      QString(error.what()));
  }
}

PlacedImage PlacedImage::Read(std::shared_ptr<const SvgDrawing> drawing, const ImageElement& image,
                              bool isSizeUnknown, const std::function<bool()>& isStopped) {
  Picture picture = ReadImage(*drawing, image, isStopped);
  const Placement placement = Placement::Of(image, picture.Pixels().size());
  if (placement.visible.size() != picture.Pixels().size())
    picture = Picture(picture.Pixels().copy(placement.visible));
  picture.SetSizeInPoints(placement.size);
  ArtworkPtr artwork = Place(image.Name(), std::move(picture), isSizeUnknown);
  return {std::move(drawing), &image, placement, std::move(artwork)};
}
