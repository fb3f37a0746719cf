#include "platform/qt/theme.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <algorithm>
#include <iterator>

namespace qtui {

namespace {

constexpr const char* kNames[] = {"system", "light", "dark"};

constexpr const char* kSystemStyle = "systemStyle";  // the property with the original style's name

struct Colors {
  QRgb window, text, base, alternateBase, button, highlight, faint, disabled, link, toolTip;
};

constexpr Colors kLightColors = {
    .window = 0xFFF3F3F4,
    .text = 0xFF1F1F21,
    .base = 0xFFFFFFFF,
    .alternateBase = 0xFFF7F7F8,
    .button = 0xFFFAFAFB,
    .highlight = 0xFF2B6CD4,
    .faint = 0xFF58585C,
    .disabled = 0xFFA5A5AB,
    .link = 0xFF1F5FC4,
    .toolTip = 0xFFFFFFE6,
};
constexpr Colors kDarkColors = {
    .window = 0xFF353538,
    .text = 0xFFE8E8EA,
    .base = 0xFF222225,
    .alternateBase = 0xFF29292C,
    .button = 0xFF4A4A50,
    .highlight = 0xFF2F6FD0,
    .faint = 0xFFB8B8BE,
    .disabled = 0xFF77777E,
    .link = 0xFF7FB0FF,
    .toolTip = 0xFF4A4A50,
};

QPalette PaletteOf(const Colors& colors) {
  QPalette palette(QColor(colors.button), QColor(colors.window));
  const auto set = [&](QPalette::ColorRole role, QRgb color) {
    palette.setColor(QPalette::All, role, QColor(color));
  };
  set(QPalette::WindowText, colors.text);
  set(QPalette::Text, colors.text);
  set(QPalette::ButtonText, colors.text);
  set(QPalette::ToolTipText, colors.text);
  set(QPalette::Base, colors.base);
  set(QPalette::AlternateBase, colors.alternateBase);
  set(QPalette::ToolTipBase, colors.toolTip);
  set(QPalette::Highlight, colors.highlight);
  set(QPalette::HighlightedText, 0xFFFFFFFF);
  set(QPalette::PlaceholderText, colors.faint);
  set(QPalette::Link, colors.link);
  set(QPalette::LinkVisited, colors.link);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(colors.disabled));
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(colors.window));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(colors.disabled));
  return palette;
}

}  // namespace

const char* NameOf(Theme theme) {
  return kNames[int(theme)];
}

std::optional<Theme> ThemeNamed(const QString& name) {
  const auto* const found = std::find(std::begin(kNames), std::end(kNames), name);
  if (found == std::end(kNames)) return std::nullopt;
  return Theme(found - std::begin(kNames));
}

void ApplyTheme(Theme theme) {
  if (!qApp->property(kSystemStyle).isValid()) {
    qApp->setProperty(kSystemStyle, QApplication::style()->name());
  }
  const bool isSystem = theme == Theme::kSystem;
  const QString style =
      isSystem ? qApp->property(kSystemStyle).toString() : QStringLiteral("fusion");
  if (QApplication::style()->name() != style) QApplication::setStyle(style);
  if (isSystem) return QApplication::setPalette(QPalette());
  QApplication::setPalette(PaletteOf(theme == Theme::kDark ? kDarkColors : kLightColors));
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

QColor Faint(const QPalette& palette, int share) {
  const QColor back = palette.color(QPalette::Window);
  const QColor text = palette.color(QPalette::WindowText);
  const auto mixed = [share](int one, int other) { return one + (other - one) * share / 255; };
  return {mixed(back.red(), text.red()), mixed(back.green(), text.green()),
          mixed(back.blue(), text.blue())};
}

QColor FaintText(const QPalette& palette) {
  // The contrast of the placeholder colour of some styles is below 4.5.
  constexpr int kShare = 185;
  return Faint(palette, kShare);
}

QColor WarningColor(const QWidget& widget) {
  return QColor(IsDark(widget.palette()) ? 0xFFF2A33A : 0xFFA04E00);
}

QPixmap WarningIcon(const QWidget& widget) {
  const int side = widget.fontMetrics().height();
  const qreal ratio = widget.devicePixelRatioF();
  QPixmap pixmap(QSize(side, side) * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);

  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(side / 16.0, side / 16.0);
  painter.setPen(QPen(WarningColor(widget), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  QPainterPath triangle;
  triangle.moveTo(8, 2);
  triangle.lineTo(14.5, 13.5);
  triangle.lineTo(1.5, 13.5);
  triangle.closeSubpath();
  painter.drawPath(triangle);
  painter.drawLine(QPointF(8, 6.5), QPointF(8, 9.5));
  painter.drawPoint(QPointF(8, 11.5));
  return pixmap;
}

}  // namespace qtui
