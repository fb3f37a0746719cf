#include <QScrollArea>
#include <QScrollBar>

#include "platform/nrvui/ui_views.h"
#include "tests/nrvui/test_dialog.h"
#include "tests/qt/test_window.h"

using namespace nrvui::controls;
using namespace nrvui::ui;

class Following : public WindowTest {
 protected:
  TestDialog test;
};

TEST_F(Following, ShowsWhatCodeSetsAtOnce) {
  test.label->SetBuddy("count");
  const struct {
    std::function<void()> change;
    const char *control, *property;
    QVariant shown;
  } changes[] = {
      {[&] { test.width->SetNumber(12.5); }, "width", "text", "12.5 pt"},
      {[&] { test.width->SetCustomUnit(UI_UnitNumberEdit::kPercentUnit); }, "width", "text",
       "12.5 %"},
      {[&] { test.name->SetValue(u"name"); }, "name", "text", "name"},
      {[&] { test.percent->SetChecked(true); }, "percent", "checked", true},
      {[&] { test.gray->SetValue(kRadioOn); }, "gray", "checked", true},  // code can select two
      {[&] { test.color->SetValue(kRadioOff); }, "color", "checked", false},
      {[&] { test.gray->SetValue(kRadioOff); }, "gray", "checked", false},  // or none
      {[&] { test.ratio->SetCaption(u"&Ratio && more"); }, "ratio", "text", "Ratio && more"},
      {[] {}, "ratio", "accessibleName", "Ratio & more"},
      {[&] { test.ratio->ShowMnemonic(true); }, "ratio", "text", "&Ratio && more"},
      {[&] { test.percent->SetCaption(u"\u5272\u5408(&P)"); }, "percent", "accessibleName",
       QStringLiteral("\u5272\u5408")},
      {[&] { test.label->SetCaption(u"&Tiles:"); }, "label", "text", "Tiles:"},
      {[] {}, "count", "accessibleName", "Tiles"},
      {[&] { test.count->SetDisabled(true); }, "count", "enabled", false},
      {[&] { test.percent->UI_Show(false); }, "percent", "visible", false},
      {[&] { test.panel->UI_Show(false); }, "count", "visible", false},
      {[&] { test.panel->UI_Show(true); }, "count", "visible", true},
  };
  Present(*test.dialog, [&](const OpenWindow& open) {
    for (const auto& [change, control, property, shown] : changes) {
      change();
      EXPECT_EQ(open.Get(control).property(property), shown) << control << ' ' << property;
    }
    // A value that code sets replaces the text being typed, and ends the field's problem.
    open.Type("width", "400 %");
    test.width->SetNumber(3);
    EXPECT_EQ(open.Text("width"), "3 %");
    open.Type("width", "none");
    open.Key(Qt::Key_Tab);
    EXPECT_TRUE(open.Field("width").IsMarked());
    test.width->SetNumber(4);
    EXPECT_FALSE(open.Field("width").IsMarked());
  });
}

TEST_F(Following, ScrollsWhatNoScreenIsWideEnoughFor) {
  test.ratio->SetCaption(nrvcore::UTF16String(std::u16string(1500, u'w')));
  Present(*test.dialog, [&](const OpenWindow& open) {
    const auto* scroller = open.window.findChild<QScrollArea*>();
    ASSERT_NE(scroller, nullptr);
    EXPECT_FALSE(scroller->verticalScrollBar()->isVisible());
    for (const char* inSight : {"messages", "ok"}) {
      const QWidget& widget = open.Get(inSight);
      EXPECT_FALSE(scroller->isAncestorOf(&widget)) << inSight;
      EXPECT_GT(widget.y(), scroller->y()) << inSight;
      EXPECT_TRUE(
          open.window.rect().contains({widget.mapTo(&open.window, QPoint()), widget.size()}));
    }
  });
}

/// The dialog's content size and the window's size are kept equal.
TEST_F(Following, KeepsWindowAndDialogOfOneSize) {
  Present(*test.dialog, [&](const OpenWindow& open) {
    const auto contentSize = [&] {
      const auto size = test.dialog->GetContentSize();
      return QSizeF(size.x, size.y).toSize();
    };
    const QSize natural = open.window.size();
    EXPECT_EQ(contentSize(), natural);
    EXPECT_GE(test.dialog->GetMinimumSize().y, natural.height());
    open.window.resize(natural + QSize(50, 40));
    EXPECT_EQ(contentSize(), natural + QSize(50, 40));
    const QPoint middle = open.window.geometry().center();
    test.dialog->SetContentSize({float(natural.width() + 8), float(natural.height() + 10)});
    EXPECT_EQ(open.window.size(), natural + QSize(8, 10));
    EXPECT_EQ(open.window.geometry().center(), middle);

    // A larger text makes the dialog larger; a side that the user made longer keeps its length.
    test.ratio->SetCaption(nrvcore::UTF16String(std::u16string(100, u'w')));
    const int wanted = open.Get("ratio").sizeHint().width();
    EXPECT_TRUE(QTest::qWaitFor([&] { return open.window.width() > wanted; }));
    const QSize grown = open.window.size();
    EXPECT_EQ(contentSize(), grown);
    EXPECT_EQ(grown.height(), natural.height() + 10);
    EXPECT_GT(test.dialog->GetMinimumSize().x, wanted);
  });
}
