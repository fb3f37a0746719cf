#include <QAccessible>

#include "platform/nrvui/ui_edits.h"
#include "platform/qt/number_field.h"
#include "tests/nrvui/test_dialog.h"
#include "tests/qt/test_window.h"

/// The fields of the module's dialog: what the user sees while typing.
class Field : public MosaicWindowTest {};

TEST_F(Field, SaysWhatItTakesAndWhatWasWrong) {
  LookAt([](const OpenWindow& open) {
    EXPECT_TRUE(open.Field("NewWidthTxt").hasFocus());
    EXPECT_EQ(open.Field("NewWidthTxt").selectedText(), "300 pt");
    EXPECT_EQ(open.Message(),
              "The width of the mosaic. Width: 0 pt to 8640 pt, also in mm, cm, in or px.");

    open.Type("NewWidthTxt", "9000");
    open.Key(Qt::Key_Tab);
    EXPECT_EQ(open.Text("NewWidthTxt"), "8640 pt");
    EXPECT_TRUE(open.Field("NewWidthTxt").IsMarked());
    const QString tooMuch = open.Message();
    EXPECT_EQ(tooMuch,
              "Width: 9000 is more than 8640 pt; it was changed to 8640 pt. "
              "Allowed here: 0 pt to 8640 pt.");

    // The problem remains while the user edits other fields; a newer problem hides it.
    open.Click("GrayRadio");
    EXPECT_EQ(open.Message(), tooMuch);
    open.Type("VerticalCountTxt", "tiles");
    open.Key(Qt::Key_Tab);
    EXPECT_EQ(open.Text("VerticalCountTxt"), "20");
    EXPECT_EQ(open.Message(), "Down: \"tiles\" is not a number. Allowed here: 1 to 8640.");
    open.Type("VerticalCountTxt", "");
    EXPECT_FALSE(open.Field("VerticalCountTxt").IsMarked()) << "as soon as it is edited";
    EXPECT_EQ(open.Message(), tooMuch);
    open.Key(Qt::Key_Tab);
    EXPECT_EQ(open.Message(),
              "Down: A number is missing; the field keeps 20. Allowed here: 1 to 8640.");
    open.Type("VerticalCountTxt", "8,640");
    open.Click("VerticalRadio");
    open.Click("MosaicUseRatioButton");
    EXPECT_EQ(
        open.Message(),
        "Across: \"Use Ratio\" set 12960, which is used although it is out of range (1 to 8640).");
    open.Type("HorizontalCountTxt", "21");
    open.Key(Qt::Key_Tab);
    open.Type("NewWidthTxt", "3in");
    open.Key(Qt::Key_Tab);
    EXPECT_EQ(open.Text("NewWidthTxt"), "216 pt");
    EXPECT_FALSE(open.Field("NewWidthTxt").IsMarked());
    EXPECT_TRUE(open.Message().contains("Height: 0 pt to 8640 pt,"));

    // After Undo the value is out of bounds again.
    open.Type("VerticalCountTxt", "8640");
    open.Click("MosaicUseRatioButton");
    open.Type("HorizontalCountTxt", "1");
    open.Key(Qt::Key_Z, Qt::ControlModifier);
    open.Key(Qt::Key_Tab);
    EXPECT_TRUE(open.Message().contains("set 12960")) << open.Message().toStdString();
    open.Type("HorizontalCountTxt", "21");

    // The problem ends when the user returns to the field and leaves it unedited.
    open.Type("NewWidthTxt", "x");
    open.Click("GrayRadio");
    EXPECT_TRUE(open.Field("NewWidthTxt").IsMarked());
    open.Click("NewWidthTxt");
    open.Key(Qt::Key_Tab);
    EXPECT_FALSE(open.Field("NewWidthTxt").IsMarked());

    // The problem ends when the bound changes.
    open.Type("TileSpaceHorzTxt", "50");
    open.Type("HorizontalCountTxt", "60");
    EXPECT_TRUE(open.Message().contains("50 is more than 19 pt"));
    open.Key(Qt::Key_Tab);
    EXPECT_FALSE(open.Field("TileSpaceHorzTxt").IsMarked());
  });
}

TEST_F(Field, CountsWhatIsTypedAsPendingUntilItIsEntered) {
  qtui::QtPresenter presenter;
  FunctionListener listener(presenter);
  int told = 0;
  std::optional<qtui::PendingEntry> pending;
  listener.WhenChanged([&](const nrvui::ui::UI_Dialog&, const auto& typed) {
    ++told;
    pending = typed;
    return qtui::Summary{};
  });
  listener.WhenPainted([&](QWidget& window) {
    const OpenWindow open(window);
    const struct {
      const char* text;
      std::optional<double> number;
      QAbstractSpinBox::StepEnabled arrows;
    } cases[] = {
        {"12", 12, QAbstractSpinBox::StepUpEnabled | QAbstractSpinBox::StepDownEnabled},
        {"8640", 8640, QAbstractSpinBox::StepDownEnabled},
        {"8641", std::nullopt, QAbstractSpinBox::StepDownEnabled},
        {"1", 1, QAbstractSpinBox::StepUpEnabled},
        {"1 m", std::nullopt, QAbstractSpinBox::StepUpEnabled | QAbstractSpinBox::StepDownEnabled}};
    for (const auto& [text, number, arrows] : cases) {
      const int before = told;
      open.Type("HorizontalCountTxt", text);
      EXPECT_EQ(open.Get<qtui::NumberField>("HorizontalCountTxt").stepEnabled(), arrows) << text;
      EXPECT_TRUE(QTest::qWaitFor([&] { return told > before; })) << text;
      EXPECT_EQ(pending ? std::optional(pending->number) : std::nullopt, number) << text;
      EXPECT_TRUE(!pending || pending->field->GetNumber() == 30) << "the node waits";
    }
    open.Key(Qt::Key_Tab);
    EXPECT_FALSE(pending);

    // Assistive technology edits fields that have no focus; each edit commits the one before.
    const auto edit = [&](const char* id) -> QAccessibleEditableTextInterface& {
      return *QAccessible::queryAccessibleInterface(&open.Get(id))->editableTextInterface();
    };
    edit("HorizontalCountTxt").replaceText(0, 2, "5");
    edit("TileSpaceHorzTxt").deleteText(0, 1);
    edit("TileSpaceHorzTxt").insertText(0, "2");
    EXPECT_EQ(open.Text("TileSpaceHorzTxt"), "2 pt");
    EXPECT_EQ(open.Text("HorizontalCountTxt"), "5");
    open.Click("okButton");
  });
  EXPECT_EQ(RunWith(presenter), ResultCode::kSuccess);
  EXPECT_EQ(record.tilesAcross, 5);
  EXPECT_EQ(record.tileSpacingHorizontal, 2);
}

TEST_F(Field, OkAndReturnEnterThePendingEditAndWaitIfItIsClamped) {
  const auto enter = [&](const char* text, bool byKey, bool mustLook) {
    EXPECT_EQ(Run([&](const OpenWindow& open) {
                const auto confirm = [&] {
                  byKey ? open.Key(Qt::Key_Return) : open.Click("okButton");
                };
                open.Type("HorizontalCountTxt", text);
                confirm();
                QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
                QCoreApplication::sendEvent(open.window.windowHandle(), &held);
                ASSERT_EQ(open.window.isVisible(), mustLook);
                if (!mustLook) return;
                EXPECT_TRUE(open.Field("HorizontalCountTxt").hasFocus());
                EXPECT_EQ(open.Field("HorizontalCountTxt").selectedText(), "1");
                EXPECT_TRUE(open.Message().contains("0 is less than 1"));
                confirm();
              }),
              ResultCode::kSuccess);
    EXPECT_EQ(record.tilesAcross, mustLook ? 1 : 12);
  };
  for (const bool byKey : {true, false}) {
    enter("12", byKey, false);
    enter("0", byKey, true);
  }
  LookAt([](const OpenWindow& open) {
    open.Type("NewWidthTxt", "150");
    open.Click("MosaicUseRatioButton");
    EXPECT_EQ(open.Text("NewHeightTxt"), "100 pt");
  });
}

TEST_F(Field, StepsByKeysWheelAndButtons) {
  LookAt([](const OpenWindow& open) {
    const auto expect = [&](const char* text) { EXPECT_EQ(open.Text("NewWidthTxt"), text); };
    open.Click("NewWidthTxt");
    open.Key(Qt::Key_Up);
    expect("301 pt");
    open.Key(Qt::Key_Down, Qt::ShiftModifier);
    expect("291 pt");
    open.Key(Qt::Key_PageUp);
    expect("301 pt");
    QTest::keyClicks(&open.Field("NewWidthTxt"), "8639.5");
    open.Key(Qt::Key_Up);
    expect("8640 pt");
    EXPECT_EQ(open.Field("NewWidthTxt").selectedText(), "8640 pt");
    EXPECT_FALSE(open.Field("NewWidthTxt").IsMarked());
    EXPECT_EQ(open.Get<qtui::NumberField>("NewWidthTxt").stepEnabled(),
              QAbstractSpinBox::StepDownEnabled);
    EXPECT_EQ(open.Get<qtui::NumberField>("TileSpaceHorzTxt").stepEnabled(),
              QAbstractSpinBox::StepUpEnabled);

    const auto wheel = [&](const char* name, int angle, Qt::KeyboardModifiers modifiers) {
      QWidget& field = open.Get(name);
      const QPointF place = field.rect().center();
      QWheelEvent event(place, field.mapToGlobal(place), {}, QPoint(0, angle), {}, modifiers,
                        Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(&field, &event);
    };
    wheel("NewWidthTxt", -180, Qt::NoModifier);
    wheel("NewWidthTxt", -60, Qt::NoModifier);  // smooth wheels report parts of a notch
    expect("8638 pt");
    wheel("NewWidthTxt", -120, Qt::ShiftModifier);
    expect("8628 pt");
    wheel("NewHeightTxt", 120, Qt::NoModifier);  // a field without the focus ignores it
    EXPECT_EQ(open.Text("NewHeightTxt"), "200 pt");
    open.Click("NewHeightTxt");
    EXPECT_EQ(open.Field("NewHeightTxt").selectedText(), "200 pt") << "by the click that enters it";
    open.Click("NewHeightTxt");
    EXPECT_EQ(open.Field("NewHeightTxt").selectedText(), "") << "the second click sets the cursor";

    const QRect field = open.Get("HorizontalCountTxt").rect();
    QTest::mouseClick(&open.Get("HorizontalCountTxt"), Qt::LeftButton, Qt::NoModifier,
                      field.topRight() + QPoint(-8, 6));
    EXPECT_EQ(open.Text("HorizontalCountTxt"), "31");
    open.Key(Qt::Key_Tab);
    open.Key(Qt::Key_Down);
    EXPECT_EQ(open.Text("VerticalCountTxt"), "19");
  });
}

/// Fields of a dialog whose nodes the test can access.
TEST(FieldOfAnyDialog, KeepsDecimalsThatItDoesNotShowAndTextAsItIsTyped) {
  TestDialog test;
  test.width->SetNumber(1.0 / 3);
  Present(*test.dialog, [&](const OpenWindow& open) {
    open.Click("width");
    open.Click("name");
    EXPECT_EQ(test.Notified(), "");
    open.Type("name", "x & y");
    QFocusEvent menuOpened(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(&open.Field("name"), &menuOpened);
    EXPECT_EQ(test.Notified(), "");
    open.Key(Qt::Key_Tab);
    EXPECT_EQ(test.name->GetValue().View(), u"x & y");
    open.Type("name", "");
    open.Click("width");
    EXPECT_TRUE(test.name->GetValue().IsEmpty());
    open.Type("width", "2");
    open.Key(Qt::Key_Escape);
  });
  EXPECT_EQ(test.width->GetNumber(), 1.0 / 3);
  EXPECT_EQ(test.Notified(), "name:2");
}

TEST(FieldOfAnyDialog, DescribesBoundsOfEveryKind) {
  TestDialog test;
  Present(*test.dialog, [&](const OpenWindow& open) {
    const auto range = [&] { return open.Get("count").accessibleDescription(); };
    EXPECT_EQ(range(), "");
    test.count->SetLowerBound(2);
    EXPECT_EQ(range(), "at least 2");
    test.count->SetUpperBound(7);
    EXPECT_EQ(range(), "2 to 7");
    test.count->SetUpperBound(-1);
    EXPECT_EQ(range(), "only 2");
    test.count->SetLowerBound(-std::numeric_limits<double>::infinity());
    test.count->SetCustomUnit(nrvui::controls::UI_UnitNumberEdit::kPercentUnit);
    EXPECT_EQ(range(), "at most -1 %");
  });
}
