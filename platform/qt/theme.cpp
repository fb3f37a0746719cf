#include "platform/qt/theme.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QIconEngine>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>
#include <algorithm>
#include <iterator>

namespace qtui {

namespace {

constexpr const char* kNames[] = {"system", "light", "dark"};

constexpr int kDarkening = 175;  // percent; styles lighten a button's colour

constexpr const char* kSystemStyle = "systemStyle";  // the property with the original style's name

struct Colors {
  QRgb window, text, base, alternateBase, button, highlight, faint, disabled, link, toolTip;
  QRgb menu;
};

constexpr Colors kLightColors = {
    .window = 0xFFF3F3F4,
    .text = 0xFF1F1F21,
    .base = 0xFFFFFFFF,
    .alternateBase = 0xFFF7F7F8,
    .button = 0xFFFAFAFB,
    .highlight = 0xFF2B6CD4,
    .faint = 0xFF58585C,
    .disabled = 0xFF84848A,
    .link = 0xFF1F5FC4,
    .toolTip = 0xFFFFFFE6,
    .menu = 0xFFFFFFFF,
};
constexpr Colors kDarkColors = {
    .window = 0xFF353538,
    .text = 0xFFE8E8EA,
    .base = 0xFF222225,
    .alternateBase = 0xFF29292C,
    .button = 0xFF4A4A50,
    .highlight = 0xFF2F6FD0,
    .faint = 0xFFB8B8BE,
    .disabled = 0xFF9A9AA1,
    .link = 0xFF7FB0FF,
    .toolTip = 0xFF4A4A50,
    .menu = 0xFF3E3E43,
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

/// Menus have a background of their own, because a dark menu over the dark canvas has no visible
/// edge.
QPalette MenuPaletteOf(const Colors& colors) {
  QPalette palette = PaletteOf(colors);
  palette.setColor(QPalette::Base, QColor(colors.menu));
  return palette;
}

/// Gives the boxes of Qt the looks of "Create Tesserae": first Cancel, then OK, both without icons.
/// The default button has the colour of selections. Disabled text has no shadow, which makes it
/// look bold in a dark theme, and separators of dark menus are lighter than the menu instead of
/// darker.
class UniformStyle final : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    if (hint == SH_DialogButtonLayout) return QDialogButtonBox::GnomeLayout;
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons || hint == SH_EtchDisabledText) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (item != nullptr && item->menuItemType == QStyleOptionMenuItem::Separator &&
        item->text.isEmpty() && IsDark(item->palette)) {
      constexpr int kGap = 5;
      const QRect line(item->rect.left() + kGap, item->rect.center().y(),
                       item->rect.width() - 2 * kGap, 1);
      return painter->fillRect(line, item->palette.color(QPalette::Disabled, QPalette::Text));
    }
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const bool isDefault = element == CE_PushButton && button != nullptr &&
                           button->features.testFlag(QStyleOptionButton::DefaultButton) &&
                           button->state.testFlag(State_Enabled);
    if (!isDefault) return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionButton marked = *button;
    QPalette& colors = marked.palette;
    colors.setColor(QPalette::Button, colors.color(QPalette::Highlight).darker(kDarkening));
    colors.setColor(QPalette::ButtonText, colors.color(QPalette::HighlightedText));
    QProxyStyle::drawControl(element, &marked, painter, widget);
  }
};

QString CurrentStyle() {
  const auto* const proxy = dynamic_cast<const QProxyStyle*>(QApplication::style());
  return (proxy != nullptr ? proxy->baseStyle() : QApplication::style())->name();
}

QIcon Drawing(const QString& name) {
  return QIcon(":/icons/" + name + ".svg");
}

/// The drawing's shape in one colour. `size` is in pixels of the device.
QPixmap Tinted(const QIcon& drawing, const QSize& size, const QColor& color) {
  QPixmap pixmap = drawing.pixmap(size, 1);
  QPainter painter(&pixmap);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(pixmap.rect(), color);
  return pixmap;
}

class ThemedIconEngine final : public QIconEngine {
 public:
  explicit ThemedIconEngine(const QString& name) : drawing(Drawing(name)) {}

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
    return Tinted(drawing, size, QApplication::palette().color(group, role));
  }
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal ratio = painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
  }
  QIconEngine* clone() const override { return new ThemedIconEngine(*this); }

 private:
  const QIcon drawing;
};

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
    qApp->setProperty(kSystemStyle, CurrentStyle());
  }
  const bool isSystem = theme == Theme::kSystem;
  const QString style =
      isSystem ? qApp->property(kSystemStyle).toString() : QStringLiteral("fusion");
  if (dynamic_cast<const UniformStyle*>(QApplication::style()) == nullptr ||
      CurrentStyle() != style) {
    QApplication::setStyle(new UniformStyle(style));
  }
  const Colors& colors = theme == Theme::kDark ? kDarkColors : kLightColors;
  QApplication::setPalette(isSystem ? QPalette() : PaletteOf(colors));
  QApplication::setPalette(isSystem ? QPalette() : MenuPaletteOf(colors), "QMenu");
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

QIcon ThemedIcon(const QString& name) {
  return QIcon(new ThemedIconEngine(name));
}

QPixmap WarningIcon(const QWidget& widget) {
  const int side = widget.fontMetrics().height();
  const qreal ratio = widget.devicePixelRatioF();
  QPixmap pixmap = Tinted(Drawing("warning"), QSize(side, side) * ratio, WarningColor(widget));
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

}  // namespace qtui
