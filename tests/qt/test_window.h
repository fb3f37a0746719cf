#pragma once

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <functional>
#include <string>

#include "platform/qt/message_line.h"
#include "platform/qt/qt_presenter.h"
#include "platform/qt/text_field.h"
#include "tests/support/built_module.h"
#include "tests/support/function_listener.h"

/// Drives an open window with real mouse and key events.
class OpenWindow {
 public:
  explicit OpenWindow(QWidget& openWindow) : window(openWindow) {}

  template <class Widget = QWidget>
  Widget& Get(const char* objectName) const {
    auto* const widget = window.findChild<Widget*>(QLatin1String(objectName));
    if (widget == nullptr) throw std::logic_error(std::string("no widget ") + objectName);
    return *widget;
  }
  /// The line edit of a field.
  qtui::TextField& Field(const char* objectName) const;
  QString Text(const char* objectName) const { return Field(objectName).text(); }
  QString Message() const;  // non-breaking spaces replaced

  void Click(const char* objectName) const;
  /// Replaces the field's text; the field keeps the focus.
  void Type(const char* objectName, const char* text) const;
  /// Sends a key to the widget that has the focus.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;

  QWidget& window;
};

/// What a test does in an open window, in place of the user.
using User = std::function<void(const OpenWindow&)>;

/// Shows a dialog to `user`, and cancels it if it is still open afterwards.
void Present(nrvui::ui::UI_Dialog& dialog, const User& user);

/// Expects that a test leaves no window open and causes no warning of Qt.
class WindowTest : public testing::Test {
 protected:
  WindowTest();
  ~WindowTest() override;
};

/// The dialog of the built module, which a stand-in host loads.
class MosaicWindowTest : public WindowTest {
 protected:
  ResultCode RunWith(nrvui::ui::DialogPresenter& presenter);
  /// Shows the dialog to `user`, and closes the window if it is still open afterwards.
  ResultCode Run(const User& user);
  /// The same; expects that the dialog was cancelled.
  void LookAt(const User& user);

  BuiltModule built;
  MosaicParameters record = SampleRecord();
  MosaicDialogState state{};
};
