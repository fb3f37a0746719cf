#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <cmath>

#include "platform/nrvui/gesture_script.h"
#include "tests/nrvui/test_dialog.h"
#include "tests/qt/test_window.h"

using nrvui::gestures::GestureScript;

class ModalRun : public WindowTest {
 protected:
  TestDialog test;
};

TEST_F(ModalRun, EndsWithWhatAHandlerThrows) {
  struct Surprise {};
  WhenChanged(*test.percent, [] { throw Surprise(); });
  WhenChanged(*test.width, [] { throw std::runtime_error("width"); });
  const auto clickAfterTyping = [&](const char* field, const char* button) {
    Present(*test.dialog, [&](const OpenWindow& open) {
      open.Type(field, "12");
      open.Click(button);
      EXPECT_FALSE(open.window.isVisible());
    });
  };
  EXPECT_THROW(Present(*test.dialog, [](const OpenWindow&) { throw Surprise(); }), Surprise);
  EXPECT_NO_THROW(clickAfterTyping("width", "cancel"));
  EXPECT_THROW(clickAfterTyping("count", "percent"), Surprise);
  EXPECT_THROW(clickAfterTyping("width", "name"), std::runtime_error);
}

TEST_F(ModalRun, EndsWhenCodeClosesTheDialog) {
  WhenChanged(*test.ratio, [&] { test.dialog->SetResponse(nrvui::ui::kOkResponse); });
  Present(*test.dialog, [&](const OpenWindow& open) {
    open.Click("ratio");
    EXPECT_FALSE(open.window.isVisible());
  });
}

TEST_F(ModalRun, StaysOpenWhenTheDialogDoes) {
  Present(*test.dialog, [&](const OpenWindow& open) {
    test.ok->SetDisabled(true);
    open.Key(Qt::Key_Return);
    test.cancel->SetDisabled(true);
    open.Key(Qt::Key_Escape);
    EXPECT_TRUE(open.window.isVisible());
  });
  const boost::intrusive_ptr<PlainDialog> endless = new PlainDialog(false);
  Present(*endless, [&](const OpenWindow& open) {
    EXPECT_EQ(open.window.pos(), QPoint(10, 20));
    open.window.close();
    EXPECT_TRUE(open.window.isVisible());
  });
  const boost::intrusive_ptr<PlainDialog> outside = new PlainDialog(true, {NAN, 1e30f});
  Present(*outside, [&](const OpenWindow& open) {
    EXPECT_TRUE(open.window.screen()->availableGeometry().contains(open.window.geometry()));
  });
  Present(*endless, [&](const OpenWindow&) { QCoreApplication::quit(); });
  EXPECT_EQ(endless->GetResponse(), nrvui::ui::kCancelResponse);
}

TEST_F(ModalRun, TellsTheDialogWhetherItIsActive) {
  struct Attentive : PlainDialog {
    void UI_ActivationChanged(bool isActive) override { told += isActive ? 'a' : 'i'; }
    std::string told;
  };
  const boost::intrusive_ptr<Attentive> dialog = new Attentive;
  Present(*dialog, [&](const OpenWindow&) {
    EXPECT_EQ(dialog->told, "a");
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(dialog->told, "ai");
  });
}

TEST_F(ModalRun, MayContainAnother) {
  TestDialog inner;
  WhenChanged(*test.ratio, [&] {
    Present(*inner.dialog, [&](const OpenWindow& open) {
      EXPECT_NE(open.window.parentWidget(), nullptr);
      test.dialog->DefaultCloseOk();  // the outer dialog closes first
      EXPECT_TRUE(open.window.isVisible());
      open.Type("name", "inner");
      open.Click("ok");
    });
    if (inner.name->GetValue() == nrvcore::UTF16String(u"inner")) throw 7;
  });
  EXPECT_THROW(Present(*test.dialog, [](const OpenWindow& open) { open.Click("ratio"); }), int);
  EXPECT_EQ(inner.dialog->GetResponse(), nrvui::ui::kOkResponse);
  EXPECT_EQ(test.dialog->GetResponse(), nrvui::ui::kOkResponse);
}

TEST_F(ModalRun, OutlivesItsWindow) {
  test.dialog->SetInitialFocus(test.name);
  std::unique_ptr<QWidget> parent;
  WhenChanged(*test.percent, [&] { QTimer::singleShot(0, [&] { parent.reset(); }); });
  for (const bool isByHandler : {false, true}) {
    parent = std::make_unique<QWidget>();
    parent->show();
    parent->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(parent.get()));
    qtui::QtPresenter presenter;
    FunctionListener listener(presenter);
    presenter.PlayScript(GestureScript::Parse("click percent\nclick gray", "script"));
    listener.WhenPainted([&](QWidget&) {
      if (!isByHandler) parent.reset();
    });
    const nrvui::ui::InstalledPresenter installed(presenter);
    test.dialog->RunModal();
    EXPECT_EQ(test.dialog->GetResponse(), nrvui::ui::kCancelResponse);
    EXPECT_EQ(presenter.Error().has_value(), isByHandler);
  }
}
