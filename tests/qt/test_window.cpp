#include "tests/qt/test_window.h"

#include <QApplication>
#include <QScrollArea>

#include "platform/nrvui/ui_dialog.h"

static QStringList warnings;

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setCursorFlashTime(0);  // screenshots must not depend on the time
  qInstallMessageHandler(
      [](QtMsgType, const QMessageLogContext&, const QString& message) { warnings += message; });
  return RUN_ALL_TESTS();
}

qtui::TextField& OpenWindow::Field(const char* objectName) const {
  QWidget& widget = Get(objectName);
  auto* const field = dynamic_cast<qtui::TextField*>(&widget);
  return field != nullptr ? *field : *widget.findChild<qtui::TextField*>();
}

QString OpenWindow::Message() const {
  return Get<qtui::MessageLine>("messages").Text().replace(QChar::Nbsp, ' ');
}

void OpenWindow::Click(const char* objectName) const {
  QWidget& widget = Get(objectName);
  auto* const scroller = window.findChild<QScrollArea*>();  // on a small screen only
  if (scroller != nullptr && scroller->isAncestorOf(&widget))
    scroller->ensureWidgetVisible(&widget);
  const int inset = widget.height() / 2;  // check boxes react at their leading edge only
  const QPoint target(widget.isRightToLeft() ? widget.width() - inset : inset, inset);
  QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                    widget.mapTo(&window, target));
}

void OpenWindow::Type(const char* objectName, const char* text) const {
  Click(objectName);
  Key(Qt::Key_A, Qt::ControlModifier);
  if (*text == '\0') Key(Qt::Key_Delete);
  // QTest::keyClicks types Latin-1 only.
  for (const QChar character : QString::fromUtf8(text))
    QTest::sendKeyEvent(QTest::Click, &Field(objectName), Qt::Key_unknown, character, {});
}

void OpenWindow::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
  QTest::keyClick(window.windowHandle(), key, modifiers);
}

static void ShowTo(const User& user, FunctionListener& listener) {
  listener.WhenPainted([user](QWidget& window) {
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    user(OpenWindow(window));
    if (window.isVisible()) window.close();
  });
}

void Present(nrvui::ui::UI_Dialog& dialog, const User& user) {
  qtui::QtPresenter presenter;
  const auto userWhoCancels = [&](const OpenWindow& open) {
    user(open);
    if (dialog.GetResponse() == nrvui::ui::kNoResponse) dialog.DefaultCloseCancel();
  };
  FunctionListener listener(presenter);
  ShowTo(userWhoCancels, listener);
  const nrvui::ui::InstalledPresenter installed(presenter);
  dialog.RunModal();
}

WindowTest::WindowTest() {
  warnings.clear();
}

WindowTest::~WindowTest() {
  EXPECT_EQ(warnings.join('\n').toStdString(), "");
  EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

ResultCode MosaicWindowTest::RunWith(nrvui::ui::DialogPresenter& presenter) {
  const nrvui::ui::InstalledPresenter installed(presenter);
  return built.RunDialog(record, state);
}

ResultCode MosaicWindowTest::Run(const User& user) {
  qtui::QtPresenter presenter;
  FunctionListener listener(presenter);
  ShowTo(user, listener);
  return RunWith(presenter);
}

void MosaicWindowTest::LookAt(const User& user) {
  EXPECT_EQ(Run(user), ResultCode::kCancelled);
}
