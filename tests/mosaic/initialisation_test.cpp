#include "mosaic/dialog_harness.h"
#include "platform/nrvui/ui_node_manager.h"

namespace {

class InitialisationTest : public MosaicTest {};

TEST_F(InitialisationTest, ShowsTheSourceAndTheCallersChoices) {
  record.deleteRaster = 9;
  record.keepHorizontal = 7;
  record.isColor = 0;
  LookAt([](const OpenDialog& open) {
    EXPECT_EQ(open.dialog.UI_GetNodeID(), "CreateMosaicDialog");
    EXPECT_EQ(Utf8(open.dialog.GetTitle()), "Create Tesserae");
    EXPECT_EQ(open.Label("OrigWidthStatic"), "300 pt");
    EXPECT_EQ(open.Label("OrigHeightStatic"), "200 pt");
    for (const char* field : {"NewWidthTxt", "NewHeightTxt"}) {
      EXPECT_EQ(open.Greatest(field), 8640.0);
      EXPECT_EQ(open.Get<UI_UnitNumberEdit>(field).GetLowerBound(), 0.0);
    }
    EXPECT_EQ(open.Number("NewWidthTxt"), 300.0);
    EXPECT_EQ(open.Number("NewHeightTxt"), 200.0);
    EXPECT_EQ(open.Number("HorizontalCountTxt"), 30.0);
    EXPECT_EQ(open.Number("VerticalCountTxt"), 20.0);
    for (const char* count : {"HorizontalCountTxt", "VerticalCountTxt"}) {
      EXPECT_EQ(open.Greatest(count), 8640.0);
      EXPECT_EQ(open.Get<UI_UnitNumberEdit>(count).GetLowerBound(), 1.0);
    }
    EXPECT_EQ(open.Number("TileSpaceHorzTxt"), 0.0);
    EXPECT_EQ(open.Greatest("TileSpaceHorzTxt"), 28.0);
    EXPECT_EQ(open.Greatest("TileSpaceVertTxt"), 18.0);
    EXPECT_TRUE(open.IsSelected("HorizontalRadio"));
    EXPECT_FALSE(open.IsSelected("VerticalRadio"));
    EXPECT_FALSE(open.IsSelected("ColorRadio"));
    EXPECT_TRUE(open.IsSelected("GrayRadio"));
    EXPECT_TRUE(open.IsChecked("DeleteRasterChk"));
    EXPECT_FALSE(open.IsChecked("UsePercentChk"));
    for (const char* control : {"MosaicUseRatioButton", "HorizontalRadio", "UsePercentChk"}) {
      EXPECT_FALSE(open.IsDisabled(control)) << control;
    }
  });

  state.usePercent = 5;
  LookAt([](const OpenDialog& open) {
    EXPECT_EQ(open.Label("OrigWidthStatic"), "300 pt") << "the source's size is no percentage";
    EXPECT_TRUE(open.IsChecked("UsePercentChk"));
    EXPECT_EQ(Utf8(open.Get<UI_UnitNumberEdit>("NewWidthTxt").GetValue()), "100 %");
  });
}

TEST_F(InitialisationTest, WithoutASourceSizeThereAreOnlyPercentages) {
  record.sizeUnavailable = 2;
  LookAt([](const OpenDialog& open) {
    EXPECT_EQ(open.Label("OrigWidthStatic"), "N/A");
    EXPECT_EQ(open.Label("OrigHeightStatic"), "N/A");
    EXPECT_EQ(open.Number("NewHeightTxt"), 100.0);
    EXPECT_EQ(open.Greatest("NewHeightTxt"), 100.0);
    EXPECT_TRUE(open.IsChecked("UsePercentChk"));
    for (const char* control : {"MosaicUseRatioButton", "HorizontalRadio", "VerticalRadio",
                                "ColorRadio", "GrayRadio", "UsePercentChk"}) {
      EXPECT_TRUE(open.IsDisabled(control)) << control;
    }
    for (const char* control : {"DeleteRasterChk", "HorizontalCountTxt", "NewWidthTxt"}) {
      EXPECT_FALSE(open.IsDisabled(control)) << control;
    }
  });
  EXPECT_EQ(Play("click DeleteRasterChk\nkey Return"), ResultCode::kSuccess);
  EXPECT_EQ(state.aspectRatio, 1.0f);
  EXPECT_EQ(state.noOriginalSize, 2);
  EXPECT_EQ(state.usePercent, 1);
  EXPECT_EQ(record.deleteRaster, 1);
  EXPECT_EQ(record.newWidth, 1.0f);
}

TEST_F(InitialisationTest, MnemonicsFollowThePlatformSetting) {
  auto& settings = nrvui::ui::UI_NodeManager::Get(false).GetCustomSettingsManager();
  const auto shown = [this] {
    bool on = false;
    LookAt([&](const OpenDialog& open) { on = open.Get("UsePercentChk").IsMnemonicShown(); });
    return on;
  };
  EXPECT_FALSE(shown());
  settings.SetSetting("windows.MnemonicsAlwaysOn", true);
  EXPECT_TRUE(shown());
  settings.SetSetting("windows.MnemonicsAlwaysOn", 1);
  EXPECT_EQ(Play("key Return"), ResultCode::kCannot);
  settings.RemoveSetting("windows.MnemonicsAlwaysOn");
  EXPECT_EQ(Play("key Return"), ResultCode::kSuccess);
}

}  // namespace
