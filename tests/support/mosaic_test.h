#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "dialog/node_lookup.h"
#include "host/plugin_main.h"
#include "mosaic/checked_cast.h"
#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/gesture.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_dialog.h"
#include "platform/nrvui/ui_edits.h"
#include "platform/standin/sheet_service.h"
#include "tests/support/function_presenter.h"
#include "tests/support/hosted_module.h"

using nrvui::controls::UI_Checkbox;

inline std::string Utf8(const nrvcore::UTF16String& text) {
  return std::string(nrvcore::utility::UTF16ToUTF8(text.View()).View());
}

/// The dialog as a person sees it: controls by ID, texts as UTF-8.
struct OpenDialog {
  template <class T = nrvui::controls::UI_ControlView>
  T& Get(const char* nodeID) const {
    return *CheckedCast<T>(FindNodeByID(dialog.GetRootView(), nodeID));
  }
  std::string Label(const char* nodeID) const {
    return Utf8(Get<nrvui::controls::UI_StaticText>(nodeID).GetValue());
  }
  std::string Text(const char* nodeID) const {
    return Utf8(Get<nrvui::controls::UI_TextEdit>(nodeID).GetValue());
  }
  void Enter(const char* nodeID, const std::string& text) const {
    (void)nrvui::gestures::Enter(dialog, Get(nodeID), nrvcore::utility::UTF8ToUTF16(text));
  }
  void Click(const char* nodeID) const { (void)nrvui::gestures::Click(dialog, Get(nodeID)); }

  nrvui::ui::UI_Dialog& dialog;
};

class PluginTest : public testing::Test, protected HostedModule {
 protected:
  PluginTest() : HostedModule(&PluginMain, "TesseraeUI") {}
};

/// A caller with a started plug-in.
class MosaicTest : public PluginTest {
 protected:
  using Person = std::function<void(const OpenDialog&)>;

  MosaicTest() { EXPECT_EQ(module.StartUp(), ResultCode::kSuccess); }

  /// Calls the suite's function; `person` acts on the open dialog.
  ResultCode Run(const Person& person) {
    const FunctionPresenter presenter([&](nrvui::ui::UI_Dialog& dialog) { person({dialog}); });
    return RunDialog(record, state);
  }
  /// The same for a person who cancels in the end.
  void LookAt(const Person& person) { EXPECT_EQ(Run(person), ResultCode::kCancelled); }

  MosaicParameters record = SampleRecord();
  MosaicDialogState state{};
};
