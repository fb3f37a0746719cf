#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QSet>

#include "platform/nrvui/ui_node_manager.h"
#include "qt/window_test.h"

namespace {

const QSet<QAccessible::Role> kRolesOfControls = {
    QAccessible::SpinBox,    QAccessible::EditableText, QAccessible::CheckBox,
    QAccessible::PushButton, QAccessible::RadioButton,  QAccessible::Grouping,
    QAccessible::Dialog,
};

/// "role:name" of each control at or below an object.
void Collect(QAccessibleInterface* object, QStringList& controls) {
  if (kRolesOfControls.contains(object->role()) && !object->state().invisible) {
    controls += QString::number(object->role()) + ':' + object->text(QAccessible::Name);
  }
  for (int i = 0; i < object->childCount(); ++i) Collect(object->child(i), controls);
}

}  // namespace

/// What people need who have no mouse, or do not see the window.
class Keyboard : public MosaicWindowTest {};

TEST_F(Keyboard, GoesThroughTheControlsInTheirOrder) {
  LookAt([](const OpenWindow& open) {
    QStringList order;
    for (int i = 0; i < 13; ++i) {
      order += QApplication::focusWidget()->objectName();
      open.Key(Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(' ').toStdString(),
              "NewWidthTxt NewHeightTxt UsePercentChk HorizontalCountTxt VerticalCountTxt "
              "TileSpaceHorzTxt TileSpaceVertTxt HorizontalRadio MosaicUseRatioButton ColorRadio "
              "DeleteRasterChk cancelButton okButton");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "NewWidthTxt");
  });
}

TEST_F(Keyboard, ChoosesAndConfirms) {
  EXPECT_EQ(Run([](const OpenWindow& open) {
              open.Get("ColorRadio").setFocus();
              open.Key(Qt::Key_Down);
              EXPECT_EQ(QApplication::focusWidget()->objectName(), "GrayRadio");
              open.Key(Qt::Key_Tab);
              open.Key(Qt::Key_Space);
              open.Get("cancelButton").setFocus();
              open.Key(Qt::Key_Enter);  // the default button's, wherever the focus is
            }),
            ResultCode::kSuccess);
  EXPECT_EQ(record.isColor, 0);
  EXPECT_EQ(record.deleteRaster, 1);
  EXPECT_EQ(record.keepHorizontal, 1);
}

TEST_F(Keyboard, ShowsMnemonicsWhileAltIsDown) {
  const auto labelOf = [](const OpenWindow& open, const char* field) {
    for (const QLabel* label : open.window.findChildren<QLabel*>()) {
      if (label->buddy() == &open.Get(field)) return label->text();
    }
    return QString();
  };
  LookAt([&](const OpenWindow& open) {
    EXPECT_EQ(labelOf(open, "HorizontalCountTxt"), "Across:");
    QTest::keyPress(open.window.windowHandle(), Qt::Key_Alt, Qt::AltModifier);
    EXPECT_EQ(labelOf(open, "HorizontalCountTxt"), "&Across:");
    open.Key(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(open.Field("HorizontalCountTxt").hasFocus());
    EXPECT_EQ(open.Field("HorizontalCountTxt").selectedText(), "30");
    open.Key(Qt::Key_G, Qt::AltModifier);
    const auto& gray = open.Get<QAbstractButton>("GrayRadio");
    EXPECT_TRUE(QTest::qWaitFor([&] { return gray.isChecked(); }));
    QTest::keyRelease(open.window.windowHandle(), Qt::Key_Alt);
    EXPECT_EQ(labelOf(open, "HorizontalCountTxt"), "Across:");
    QTest::keyPress(open.window.windowHandle(), Qt::Key_Alt, Qt::AltModifier);
    QApplication::setActiveWindow(nullptr);  // the key goes up in another window
    EXPECT_EQ(labelOf(open, "HorizontalCountTxt"), "Across:");
  });

  auto& settings = nrvui::ui::UI_NodeManager::Get(true).GetCustomSettingsManager();
  settings.SetSetting("windows.MnemonicsAlwaysOn", true);
  LookAt([&](const OpenWindow& open) { EXPECT_EQ(labelOf(open, "NewWidthTxt"), "&Width:"); });
  settings.RemoveSetting("windows.MnemonicsAlwaysOn");
}

TEST_F(Keyboard, ComesWithANameForEveryControl) {
  LookAt([](const OpenWindow& open) {
    QStringList controls;
    Collect(QAccessible::queryAccessibleInterface(&open.window), controls);
    // A dialog, six groups, six fields, two boxes, four radio buttons and three buttons.
    EXPECT_EQ(controls.size(), 22) << controls.join('\n').toStdString();
    for (const QString& control : controls) {
      EXPECT_FALSE(control.endsWith(':')) << control.toStdString();
      EXPECT_FALSE(control.contains('&')) << control.toStdString();
    }
    const auto name = [&](const char* id) {
      return QAccessible::queryAccessibleInterface(&open.Get(id))->text(QAccessible::Name);
    };
    EXPECT_EQ(name("HorizontalCountTxt"), "Across");
    EXPECT_EQ(name("DeleteRasterChk"), "Delete raster");
    EXPECT_EQ(name("OrigWidthStatic"), "Width: 300 pt");
    EXPECT_EQ(open.Get("HorizontalCountTxt").accessibleDescription(), "1 to 8640");
  });
}
