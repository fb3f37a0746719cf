#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "dialog/node_lookup.h"
#include "host/plugin_main.h"
#include "mosaic/checked_cast.h"
#include "mosaic/mosaic_suite.h"
#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/gesture.h"
#include "platform/nrvui/scripted_presenter.h"
#include "platform/nrvui/ui_checkbox.h"
#include "platform/nrvui/ui_dialog.h"
#include "platform/nrvui/ui_radio_button.h"
#include "platform/nrvui/ui_static_text.h"
#include "platform/nrvui/ui_unit_number_edit.h"
#include "platform/standin/host.h"
#include "platform/standin/module.h"
#include "platform/standin/sheet_service.h"

using nrvui::controls::UI_Checkbox;
using nrvui::controls::UI_ControlView;
using nrvui::controls::UI_RadioButton;
using nrvui::controls::UI_StaticText;
using nrvui::controls::UI_UnitNumberEdit;
using nrvui::ui::UI_Dialog;

inline std::string Utf8(const nrvcore::UTF16String& text) {
  return std::string(nrvcore::utility::UTF16ToUTF8(text.View()).View());
}

/// The dialog as a person sees it: controls by ID, texts as UTF-8.
class OpenDialog {
 public:
  explicit OpenDialog(UI_Dialog& dialog) : dialog(dialog) {}

  template <class T = UI_ControlView>
  T& Get(const char* nodeID) const {
    return *CheckedCast<T>(FindNodeByID(dialog.GetRootView(), nodeID));
  }
  double Number(const char* nodeID) const { return Get<UI_UnitNumberEdit>(nodeID).GetNumber(); }
  double Greatest(const char* nodeID) const {
    return Get<UI_UnitNumberEdit>(nodeID).GetUpperBound();
  }
  std::string Label(const char* nodeID) const {
    return Utf8(Get<UI_StaticText>(nodeID).GetValue());
  }
  bool IsSelected(const char* nodeID) const { return Get<UI_RadioButton>(nodeID).GetValue() != 0; }
  bool IsChecked(const char* nodeID) const { return Get<UI_Checkbox>(nodeID).IsChecked(); }
  bool IsDisabled(const char* nodeID) const { return Get(nodeID).IsDisabled(); }

  void Enter(const char* nodeID, const std::string& text) const {
    (void)nrvui::gestures::Enter(dialog, Get(nodeID), nrvcore::utility::UTF8ToUTF16(text));
  }
  void Click(const char* nodeID) const { (void)nrvui::gestures::Click(dialog, Get(nodeID)); }

  UI_Dialog& dialog;
};

/// Plays a function in the place of a person, then cancels unless it has closed the dialog.
class FunctionPresenter final : public nrvui::ui::DialogPresenter {
 public:
  explicit FunctionPresenter(std::function<void(const OpenDialog&)> person)
      : person(std::move(person)) {}
  void Present(UI_Dialog& dialog) override { person(OpenDialog(dialog)); }

 private:
  std::function<void(const OpenDialog&)> person;
};

/// A caller with a started plug-in and a source of 300 by 200 points.
class MosaicTest : public testing::Test {
 protected:
  explicit MosaicTest(std::filesystem::path resources = standin::DefaultResourceRoot());

  /// Calls the suite's function; `person` acts on the open dialog.
  ResultCode Run(std::function<void(const OpenDialog&)> person);
  /// The same for a person who cancels in the end.
  void LookAt(std::function<void(const OpenDialog&)> person);
  /// The same with a gesture file's text, which must play through.
  ResultCode Play(const std::string& gestures);

  void SetSource(int32_t width, int32_t height);

  standin::RecordingUserInterface alerts;
  standin::Host host;
  standin::Module module{host, &PluginMain, "TesseraeUI"};
  MosaicParameters record{};
  MosaicDialogState state{};
};

/// A folder of resources that is a copy of the real one until a test damages its layout.
class DamagedResources {
 public:
  DamagedResources();
  ~DamagedResources();

  const std::filesystem::path& Root() const { return root; }
  /// Exchanges every occurrence of two texts in layout 16301, which must be there.
  void SwapInLayout(const std::string& one, const std::string& other) const;

 private:
  std::filesystem::path root;
};
