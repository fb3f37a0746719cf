#pragma once

#include <QByteArray>
#include <QImage>
#include <functional>

/// Whether an image format, as Qt names it, is a drawing that the SVG reader must draw.
bool IsSvg(const QByteArray& format);

/// Draws an SVG file's bytes, packed or not, in a process of its own, tesserae-svg-reader, because
/// a drawing of a few lines can ask for any time and memory. That process gets 8 seconds and 2 GB.
/// Null when the drawing is damaged, too large or needs more than that. Throws StudioError when the
/// drawing shows a file other than itself, and when the process cannot be started; `path` is for
/// these messages. Asks `isStopped` now and then; null soon after it says so.
QImage DrawSvg(const QByteArray& bytes, const QString& path,
               const std::function<bool()>& isStopped);

/// 72 dots per inch: a drawing's unit is a point.
inline constexpr int kSvgDotsPerMeter = 2835;

/// How the SVG reader ends; when it has drawn, its output is the size (two 32-bit integers) and the
/// lines of pixels, Format_ARGB32_Premultiplied.
enum class SvgAnswer { kDrawn, kDamaged, kShowsOtherFile };
