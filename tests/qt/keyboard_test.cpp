#include <QAccessible>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>

#include "platform/nrvui/ui_node_manager.h"
#include "tests/qt/test_window.h"

/// Operation by keyboard and by assistive technology.
class Keyboard : public MosaicWindowTest {};

TEST_F(Keyboard, GoesThroughTheControlsInTheirOrderAndNamesThem) {
  const auto name = [](QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
  };
  LookAt([&](const OpenWindow& open) {
    QStringList visited;
    for (int i = 0; i < 13; ++i) {
      QWidget* const control = QApplication::focusWidget();
      visited += control->objectName() + '=' + name(control);
      open.Key(Qt::Key_Tab);
    }
    EXPECT_EQ(visited.join('|').toStdString(),
              "NewWidthTxt=Width|NewHeightTxt=Height|UsePercentChk=Use percentages|"
              "HorizontalCountTxt=Across|VerticalCountTxt=Down|TileSpaceHorzTxt=Horizontal|"
              "TileSpaceVertTxt=Vertical|HorizontalRadio=Keep width|"
              "MosaicUseRatioButton=Use Ratio|ColorRadio=Colour|DeleteRasterChk=Delete raster|"
              "cancelButton=Cancel|okButton=OK");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "NewWidthTxt");
    QStringList groups;
    for (QGroupBox* group : open.window.findChildren<QGroupBox*>()) groups += name(group);
    EXPECT_EQ(groups.join('|').toStdString(),
              "Current Size|New Size|Number of Tiles|Tile Spacing|Proportions|Result");
    EXPECT_EQ(name(&open.Get("OrigWidthStatic")), "Width: 300 pt");
    EXPECT_EQ(open.Get("HorizontalCountTxt").accessibleDescription(),
              "The number of tiles side by side, a whole number. 1 to 8640");
    QAccessibleInterface& across =
        *QAccessible::queryAccessibleInterface(&open.Get("HorizontalCountTxt"));
    QAccessibleValueInterface& value = *across.valueInterface();
    EXPECT_TRUE(across.state().editable);
    EXPECT_NE(across.textInterface(), nullptr);
    EXPECT_NE(across.editableTextInterface(), nullptr);
    EXPECT_EQ(across.text(QAccessible::Value), "30");
    value.setCurrentValue(12.0);
    EXPECT_EQ(open.Text("HorizontalCountTxt"), "12");
    EXPECT_EQ(QVariantList({value.currentValue(), value.minimumValue(), value.maximumValue(),
                            value.minimumStepSize()}),
              QVariantList({12.0, 1.0, 8640.0, 1.0}));
  });
}

TEST_F(Keyboard, EntersARadioGroupWhereItIsSelectedAndOffersActions) {
  record.isColor = record.keepHorizontal = 0;
  LookAt([](const OpenWindow& open) {
    open.Get("TileSpaceVertTxt").setFocus();
    open.Key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "VerticalRadio");
    open.Get("DeleteRasterChk").setFocus();
    open.Key(Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "GrayRadio");

    const auto actions = [&](const char* id) {
      return QAccessible::queryAccessibleInterface(&open.Get(id))->actionInterface();
    };
    const QString toggle = QAccessibleActionInterface::toggleAction();
    EXPECT_EQ(actions("UsePercentChk")->keyBindingsForAction(toggle), QStringList("Alt+P"));
    EXPECT_EQ(
        actions("NewHeightTxt")->keyBindingsForAction(QAccessibleActionInterface::setFocusAction()),
        QStringList("Alt+H"));
    actions("UsePercentChk")->doAction(toggle);
    EXPECT_TRUE(QTest::qWaitFor([&] { return open.Text("NewWidthTxt") == "100 %"; }));
    const QAccessible::State state =
        QAccessible::queryAccessibleInterface(&open.Get("UsePercentChk"))->state();
    EXPECT_TRUE(state.checkable && state.checked);
  });
}

TEST_F(Keyboard, HearsWarningsAndSummaries) {
  qtui::QtPresenter presenter;
  FunctionListener listener(presenter);
  listener.WhenChanged([](const nrvui::ui::UI_Dialog&, const auto& pending) {
    if (!pending) return qtui::Summary{"Nothing typed"};
    return qtui::Summary{QString::number(pending->number) + " typed", pending->number > 50};
  });
  listener.WhenPainted([](QWidget& window) {
    const OpenWindow open(window);
    const auto hears = [&](const char* text) {
      return QTest::qWaitFor([&] {
        auto* const widget = window.findChild<QWidget*>("announcement");
        if (widget == nullptr) return false;
        auto* const spoken = QAccessible::queryAccessibleInterface(widget);
        return spoken->role() == QAccessible::Notification &&
               spoken->text(QAccessible::Name).replace(QChar::Nbsp, ' ') == text;
      });
    };
    EXPECT_TRUE(hears("Nothing typed"));
    open.Type("VerticalCountTxt", "60");
    EXPECT_TRUE(hears("60 typed"));
    open.Type("VerticalCountTxt", "0");
    open.Key(Qt::Key_Tab);
    EXPECT_TRUE(hears("Down: 0 is less than 1; it was changed to 1. Allowed here: 1 to 8640."));
    open.Type("HorizontalCountTxt", "70");
    EXPECT_TRUE(hears("70 typed"));
    EXPECT_TRUE(open.Message().endsWith("1 to 8640.\n70 typed")) << "a warning each";
    // A state within a gesture, here 200 %, is not announced.
    open.Click("UsePercentChk");
    QTest::qWait(1);
    EXPECT_TRUE(hears("70 typed"));
    window.close();
  });
  EXPECT_EQ(RunWith(presenter), ResultCode::kCancelled);
}

TEST_F(Keyboard, ChoosesAndConfirms) {
  EXPECT_EQ(Run([](const OpenWindow& open) {
              open.Get("ColorRadio").setFocus();
              open.Key(Qt::Key_Down);
              EXPECT_EQ(QApplication::focusWidget()->objectName(), "GrayRadio");
              open.Key(Qt::Key_Tab);
              open.Key(Qt::Key_Space);
              open.Get("MosaicUseRatioButton").setFocus();
              open.Key(Qt::Key_Return);
              EXPECT_TRUE(open.window.isVisible());
              open.Get("DeleteRasterChk").setFocus();
              open.Key(Qt::Key_Enter);
            }),
            ResultCode::kSuccess);
  LookAt([](const OpenWindow& open) {
    open.Get("cancelButton").setFocus();
    open.Key(Qt::Key_Return);
    EXPECT_FALSE(open.window.isVisible());
  });
  EXPECT_EQ(record.isColor, 0);
  EXPECT_EQ(record.deleteRaster, 1);
  EXPECT_EQ(record.keepHorizontal, 1);
}

TEST_F(Keyboard, ExplainsWhatHasTheFocusOrThePointerAndWhyItIsDisabled) {
  record.sizeUnavailable = 1;
  LookAt([](const OpenWindow& open) {
    for (const char* id : {"DeleteRasterChk", "cancelButton", "TileSpaceVertTxt"}) {
      open.Get(id).setFocus();
      const QString help = open.Get(id).toolTip().section('.', 0, 0);
      EXPECT_TRUE(help.size() > 10 && open.Message().startsWith(help)) << id;
    }
    const QString focused = open.Message();
    const QPoint radio = open.Get("ColorRadio").mapTo(&open.window, QPoint(8, 8));
    for (const QPoint& place : {QPoint(1, 1), radio, QPoint(1, 1)}) {
      QTest::mouseMove(open.window.windowHandle(), place);
      QCoreApplication::processEvents();
      EXPECT_EQ(open.Message(),
                place == radio ? "The size of this picture is not known." : focused);
    }
  });
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
    QApplication::setActiveWindow(nullptr);  // the key is released in another window
    EXPECT_EQ(labelOf(open, "HorizontalCountTxt"), "Across:");
  });
  auto& settings = nrvui::ui::UI_NodeManager::Get(true).GetCustomSettingsManager();
  settings.SetSetting("windows.MnemonicsAlwaysOn", true);
  LookAt([&](const OpenWindow& open) { EXPECT_EQ(labelOf(open, "NewWidthTxt"), "&Width:"); });
  settings.SetSetting("windows.MnemonicsAlwaysOn", false);
}
