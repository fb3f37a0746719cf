#include <QApplication>
#include <QLabel>

#include "platform/nrvui/ui_node_manager.h"
#include "qt/window_test.h"

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
  });

  auto& settings = nrvui::ui::UI_NodeManager::Get(true).GetCustomSettingsManager();
  settings.SetSetting("windows.MnemonicsAlwaysOn", true);
  LookAt([&](const OpenWindow& open) { EXPECT_EQ(labelOf(open, "NewWidthTxt"), "&Width:"); });
  settings.RemoveSetting("windows.MnemonicsAlwaysOn");
}
