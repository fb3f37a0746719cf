#pragma once

#include <QRectF>
#include <QTransform>
#include <map>
#include <optional>
#include <string>
#include <string_view>

/// Values of SVG attributes and CSS properties, as "Scalable Vector Graphics (SVG) 2" defines them.
/// Each function throws StudioError, with the reason alone, for a value that it does not define.

/// What relative lengths count from, in user units.
struct LengthBase {
  double whole;     // 100 %
  double fontSize;  // 1 em
};

/// A length in user units, of which an inch has 96. Nothing for "auto" and for an empty text.
std::optional<double> ParseLength(std::string_view text, const LengthBase& base);

/// What a list of transform functions does to directions and lengths; 3D functions are unknown
/// here. Moves are left out, because sizes do not depend on them.
QTransform ParseTransform(std::string_view text);

/// Nothing for an empty text, and for a width or height that is not above 0.
std::optional<QRectF> ParseViewBox(std::string_view text);

/// The value of a `preserveAspectRatio` attribute.
struct AspectRatio {
  double alignX = 0.5;  // the share of the free room that lies left of the content
  double alignY = 0.5;
  bool isNone = false;  // stretches the content
  bool isSlice = false;

  static AspectRatio Parse(std::string_view text);

  /// Where content of this size lies in the viewport; larger than it for "slice".
  QRectF Fit(QSizeF content, const QRectF& viewport) const;
};

/// The declarations of a `style` attribute. Names are in lower case; the last one counts.
std::map<std::string, std::string> ParseStyle(std::string_view text);
