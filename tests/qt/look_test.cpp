#include <QAbstractSpinBox>
#include <QApplication>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QStyle>

#include "platform/nrvcore/localizer.h"
#include "platform/qt/theme.h"
#include "tests/qt/test_window.h"
#include "tests/support/contrast.h"

struct Look {
  const char* name;
  const char* language;
  qtui::Theme theme;
  qreal fontScale;
  Qt::LayoutDirection direction;
  bool isSizeKnown;
};

namespace {

using nrvcore::config::Localizer;

constexpr Look kLooks[] = {
    {"System", "en", qtui::Theme::kSystem, 1, Qt::LeftToRight, true},
    {"SystemLarge", "de", qtui::Theme::kSystem, 2.5, Qt::LeftToRight, true},
    {"DarkSmallRightToLeft", "ja", qtui::Theme::kDark, 0.7, Qt::RightToLeft, false},
};

/// All visible labels, fields and buttons.
QList<QWidget*> VisibleControls(const QWidget& window) {
  QList<QWidget*> controls;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const auto* label = qobject_cast<QLabel*>(widget);
    const bool isPart = qobject_cast<QAbstractSpinBox*>(widget->parentWidget()) != nullptr;
    const bool isControl = label != nullptr ? !label->text().isEmpty() || !label->pixmap().isNull()
                                            : widget->focusPolicy() != Qt::NoFocus;
    if (widget->isVisible() && isControl && !isPart) controls += widget;
  }
  return controls;
}

QRect RectIn(const QWidget& window, const QWidget& widget) {
  return {widget.mapTo(&window, QPoint()), widget.size()};
}

void ExpectWellLaidOut(const QWidget& window, int controlCount) {
  const QList<QWidget*> controls = VisibleControls(window);
  EXPECT_EQ(controls.size(), controlCount);
  const QImage picture = const_cast<QWidget&>(window).grab().toImage();
  const qreal ratio = picture.devicePixelRatio();
  EXPECT_EQ(picture.size(), window.size() * window.devicePixelRatio());
  for (const QWidget* widget : controls) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    const std::string name = (widget->objectName() + (label ? label->text() : "")).toStdString();
    const QRect rect = RectIn(window, *widget);
    EXPECT_TRUE(window.rect().contains(rect)) << name;
    const bool isWrapped = label != nullptr && label->wordWrap();
    const QSize needed =
        isWrapped ? QSize(0, label->heightForWidth(rect.width())) : widget->sizeHint();
    EXPECT_EQ(rect.size().expandedTo(needed), rect.size()) << name;
    const QRect pixels(rect.topLeft() * ratio, rect.size() * ratio);
    EXPECT_GT(ContrastIn(picture.copy(pixels)), 1) << name;
    for (const QWidget* other : controls) {
      EXPECT_TRUE(other == widget || !rect.intersects(RectIn(window, *other))) << name;
    }
  }
}

void Wear(const Look& look) {
  static const QFont font = QApplication::font();
  qtui::ApplyTheme(look.theme);
  QFont scaled = font;
  scaled.setPointSizeF(font.pointSizeF() * look.fontScale);
  QApplication::setFont(scaled);
  QApplication::setLayoutDirection(look.direction);
}

/// Causes a problem message, and waits until it is laid out.
void Blunder(const OpenWindow& open) {
  open.Type("TileSpaceHorzTxt", "100000.0001 in");
  open.Key(Qt::Key_Tab);
  QTest::mouseMove(open.window.windowHandle(), QPoint(1, 1));  // over no control
  QTest::qWait(20);
}

}  // namespace

class LookTest : public MosaicWindowTest, public testing::WithParamInterface<Look> {
 protected:
  LookTest() {
    Wear(GetParam());
    Localizer::Get().SetCatalogues(standin::ResourceFolders::OfProgram().host / "translations");
    Localizer::Get().SetLanguage(GetParam().language);
    record.sizeUnavailable = GetParam().isSizeKnown ? 0 : 1;
  }
  ~LookTest() override {
    Localizer::Get().SetLanguage("en");
    Wear(kLooks[0]);
  }
};

TEST_P(LookTest, ClipsAndCoversNothing) {
  const bool isDark = GetParam().theme == qtui::Theme::kDark;
  EXPECT_EQ(QApplication::palette().color(QPalette::Window).lightness() < 100, isDark);
  LookAt([](const OpenWindow& open) {
    // Ten labels (two of them values), six fields, six toggles, three buttons and the message.
    constexpr int kControls = 26;
    const QSize opened = open.window.size();
    ExpectWellLaidOut(open.window, kControls);
    const QRect label = RectIn(open.window, open.Get("OrigWidthStatic"));
    const QRect field = RectIn(open.window, open.Get("HorizontalCountTxt"));
    EXPECT_LE(std::abs(open.window.isRightToLeft() ? label.right() - field.right()
                                                   : label.left() - field.left()),
              1);
    EXPECT_EQ(open.Get("NewWidthTxt").width(), open.Get("TileSpaceVertTxt").width());
    EXPECT_EQ(open.Get("okButton").size(), open.Get("cancelButton").size());
    const auto groups = open.window.findChildren<QGroupBox*>();
    for (const QGroupBox* group : groups)
      EXPECT_NEAR(group->width(), groups[0]->width(), 1) << group->title().toStdString();
    EXPECT_TRUE(open.Get<QPushButton>("okButton").isDefault());

    // A message fits in the reserved lines, or the window grows.
    Blunder(open);
    ExpectWellLaidOut(open.window, kControls + 1);
    EXPECT_EQ(open.window.width(), opened.width());
    const bool isLarge = GetParam().fontScale > 1;
    EXPECT_TRUE(isLarge || open.window.size() == opened);
    open.window.resize(opened * 1.5);
    QTest::qWait(20);
    ExpectWellLaidOut(open.window, kControls + 1);
  });
}

TEST_P(LookTest, ComesToAnOpenDialogAsToANewOne) {
  QImage expected;
  LookAt([&](const OpenWindow& open) {
    Blunder(open);
    expected = open.window.grab().toImage();
  });
  Wear(kLooks[GetParam().fontScale > 1 ? 0 : 1]);
  LookAt([&](const OpenWindow& open) {
    Blunder(open);
    Wear(GetParam());
    EXPECT_TRUE(QTest::qWaitFor([&] { return open.window.grab().toImage() == expected; }));
  });
}

class Contrasts : public MosaicWindowTest {};

TEST_F(Contrasts, AreEnoughToReadAllThemes) {
  for (const auto theme : {qtui::Theme::kSystem, qtui::Theme::kLight, qtui::Theme::kDark}) {
    qtui::ApplyTheme(theme);
    LookAt([](const OpenWindow& open) {
      const QImage picture = open.window.grab().toImage();
      for (QWidget* widget : VisibleControls(open.window)) {
        QRect text = RectIn(open.window, *widget);
        const int left = text.left();
        if (const auto* box = qobject_cast<QAbstractButton*>(widget); box && box->isCheckable()) {
          const int side = widget->style()->pixelMetric(QStyle::PM_IndicatorWidth);
          const QRect mark(text.left() - 3, text.center().y() - 2, side / 2, 4);
          EXPECT_GE(ContrastIn(picture.copy(mark)), 3) << widget->objectName().toStdString();
          text.setLeft(text.left() + side + 2);
        }
        const bool isFramed = qobject_cast<QLabel*>(widget) == nullptr && text.left() == left;
        if (isFramed) text.adjust(4, 4, -4, -4);
        EXPECT_GE(ContrastIn(picture.copy(text)), 4.5) << widget->objectName().toStdString();
      }
    });
  }
  qtui::ApplyTheme(qtui::Theme::kSystem);
}

class Themes : public MosaicWindowTest {};

TEST_F(Themes, HaveNamesAndOneOrderOfButtonsInAllDialogs) {
  EXPECT_FALSE(qtui::ThemeNamed("Dark"));
  for (const char* name : {"dark", "light", "system"}) {
    const auto theme = qtui::ThemeNamed(name);
    ASSERT_TRUE(theme) << name;
    EXPECT_STREQ(qtui::NameOf(*theme), name);
    qtui::ApplyTheme(*theme);
    QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    box.resize(box.sizeHint());
    box.layout()->activate();
    EXPECT_GT(box.button(QDialogButtonBox::Ok)->x(), box.button(QDialogButtonBox::Cancel)->x());
    LookAt([](const OpenWindow& open) {
      EXPECT_GT(open.Get("okButton").x(), open.Get("cancelButton").x());
    });
  }
}

INSTANTIATE_TEST_SUITE_P(Look, LookTest, testing::ValuesIn(kLooks),
                         [](const auto& info) { return info.param.name; });
