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

/// An open window as a test drives it.
class OpenWindow {
 public:
  explicit OpenWindow(QWidget& openWindow) : window(openWindow) {}

  template <class Widget = QWidget>
  Widget& Get(const char* objectName) const {
    auto* const widget = window.findChild<Widget*>(QLatin1String(objectName));
    if (widget == nullptr) throw std::logic_error(std::string("no widget ") + objectName);
    return *widget;
  }
  /// Where the text of a field is typed and shown.
  qtui::TextField& Field(const char* objectName) const;
  QString Text(const char* objectName) const { return Field(objectName).text(); }
  QString Message() const;  // with plain blanks

  void Click(const char* objectName) const;
  /// Replaces the field's text and stays in it.
  void Type(const char* objectName, const char* text) const;
  /// Presses a key wherever the focus is.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;

  QWidget& window;
};

using Person = std::function<void(const OpenWindow&)>;

/// Presents a dialog to `person`, and cancels it when they leave it open.
void Present(nrvui::ui::UI_Dialog& dialog, const Person& person);

/// No test may leave a window, or a line on the console.
class WindowTest : public testing::Test {
 protected:
  WindowTest();
  ~WindowTest() override;
};

/// The real dialog: the built module under a host, and a caller.
class MosaicWindowTest : public WindowTest {
 protected:
  ResultCode RunWith(nrvui::ui::DialogPresenter& presenter);
  /// `person` has the open window, which is closed after them.
  ResultCode Run(const Person& person);
  /// The same for a person who confirms nothing.
  void LookAt(const Person& person);

  BuiltModule built;
  MosaicParameters record = SampleRecord();
  MosaicDialogState state{};
};
