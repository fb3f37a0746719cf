#pragma once

#include <QRectF>
#include <QTransform>
#include <map>
#include <optional>
#include <string>
#include <string_view>

/// Parsers for values of SVG attributes and CSS properties, as "Scalable Vector Graphics (SVG) 2"
/// defines them. `DrawingReader` and `Placement` use them. Each parser throws StudioError with the
/// reason alone when the value is not valid; callers add which element has it.

/// The sizes that relative lengths refer to, in user units.
struct LengthBase {
  double whole;     // 100 %
  double fontSize;  // 1 em
};

/// A length in user units; an inch has 96. No value for "auto" and for an empty text.
std::optional<double> ParseLength(std::string_view text, const LengthBase& base);

/// The linear part of a list of 2D transform functions. Translations are ignored, because sizes do
/// not depend on them.
QTransform ParseTransform(std::string_view text);

/// No value for an empty text, and for a width or height that is not above 0.
std::optional<QRectF> ParseViewBox(std::string_view text);

/// The value of a `preserveAspectRatio` attribute.
struct AspectRatio {
  double alignX = 0.5;  // the part of the free width that lies left of the content, 0 to 1
  double alignY = 0.5;  // the part of the free height above it
  bool isNone = false;  // the content is stretched to the viewport
  bool isSlice = false;

  static AspectRatio Parse(std::string_view text);

  /// The rectangle that content of this size covers in the viewport. For "slice" it can be larger.
  QRectF Fit(QSizeF content, const QRectF& viewport) const;
};

/// The value of a CSS property, without comments.
struct Declaration {
  std::string value;
  bool isImportant = false;  // it had "!important", which is not part of `value`
};

/// The declarations of a `style` attribute by the property's name in lower case. Of several for one
/// property the last important one counts, or else the last one. Strings, parentheses and comments
/// that are still open at the end are closed there, as CSS does.
std::map<std::string, Declaration> ParseStyle(std::string_view text);
