#include "qt/window_test.h"

#include <QApplication>
#include <QCheckBox>
#include <QRadioButton>

#include "platform/nrvui/ui_dialog.h"
#include "platform/standin/held_suite.h"

namespace {

QStringList warnings;

void NoteWarning(QtMsgType, const QMessageLogContext&, const QString& message) {
  warnings += message;
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setCursorFlashTime(0);  // pictures must not depend on the moment
  qInstallMessageHandler(NoteWarning);
  return RUN_ALL_TESTS();
}

qtui::TextField& OpenWindow::Field(const char* objectName) const {
  QWidget& widget = Get(objectName);
  auto* const field = dynamic_cast<qtui::TextField*>(&widget);
  return field != nullptr ? *field : *widget.findChild<qtui::TextField*>();
}

void OpenWindow::Click(const char* objectName) const {
  QWidget& widget = Get(objectName);
  const bool hasIndicator =
      qobject_cast<QCheckBox*>(&widget) || qobject_cast<QRadioButton*>(&widget);
  const int inset = widget.height() / 2;
  const QPoint indicator(widget.isRightToLeft() ? widget.width() - inset : inset, inset);
  const QPoint target = widget.mapTo(&window, hasIndicator ? indicator : widget.rect().center());
  QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, target);
}

void OpenWindow::Type(const char* objectName, const char* text) const {
  Click(objectName);
  Key(Qt::Key_A, Qt::ControlModifier);
  if (*text == '\0') Key(Qt::Key_Delete);
  QTest::keyClicks(&Field(objectName), QString::fromUtf8(text));
}

void OpenWindow::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
  QTest::keyClick(window.windowHandle(), key, modifiers);
}

void Present(nrvui::ui::UI_Dialog& dialog, const Person& person) {
  qtui::QtPresenter presenter;
  presenter.WhenPainted([&](QWidget& window) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    person(OpenWindow(window));
    if (dialog.GetResponse() == nrvui::ui::kNoResponse) dialog.DefaultCloseCancel();
  });
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

MosaicWindowTest::MosaicWindowTest() : module(host, MODULE_FILE) {
  EXPECT_EQ(module.StartUp(), ResultCode::kSuccess);
  record.boundsRight = 300;
  record.boundsBottom = 200;
  record.tilesAcross = 30;
  record.tilesDown = 20;
  record.isColor = 1;
  record.keepHorizontal = 1;
}

MosaicWindowTest::~MosaicWindowTest() {
  EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
  for (const std::string& leftover : host.Leftovers()) ADD_FAILURE() << leftover;
}

ResultCode MosaicWindowTest::RunWith(nrvui::ui::DialogPresenter& presenter) {
  const nrvui::ui::InstalledPresenter installed(presenter);
  const standin::HeldSuite<MosaicSuite> suite(host);
  MosaicParameters* params = &record;
  return suite->RunMosaicDialog(&state, &params);
}

ResultCode MosaicWindowTest::Run(const Person& person) {
  qtui::QtPresenter presenter;
  presenter.WhenPainted([&](QWidget& window) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    person(OpenWindow(window));
    if (window.isVisible()) window.close();
  });
  return RunWith(presenter);
}

void MosaicWindowTest::LookAt(const Person& person) {
  EXPECT_EQ(Run(person), ResultCode::kCancelled);
}
