#include "platform/nrvui/ui_node_manager.h"
#include "tests/support/mosaic_test.h"

namespace {

class InitialisationTest : public MosaicTest {};

TEST_F(InitialisationTest, ShowsTheSourceAsLengthsEvenWhereTheNewSizeIsAPercentage) {
  state.usePercent = 5;
  record.deleteRaster = 9;
  LookAt([](const OpenDialog& open) {
    EXPECT_EQ(open.dialog.UI_GetNodeID(), "CreateMosaicDialog");
    EXPECT_EQ(open.dialog.GetPlacement(), nrvui::ui::DialogPlacement::kPositioned);
    EXPECT_TRUE(open.dialog.GetStyle().keepsCentre);
    EXPECT_EQ(open.dialog.GetStyle().value, 0u);
    EXPECT_EQ(open.dialog.GetDialogPoint().x, 100.0f);
    EXPECT_EQ(open.dialog.GetDialogPoint().y, 100.0f);
    EXPECT_TRUE(open.Get<UI_Checkbox>("DeleteRasterChk").IsChecked());
    EXPECT_THROW(open.Get<UI_Checkbox>("NewWidthTxt"), std::exception) << "it is no box";
    EXPECT_EQ(open.Label("OrigHeightStatic"), "200 pt");
    EXPECT_EQ(open.Label("OrigWidthStatic"), "300 pt") << "the source's size is no percentage";
    EXPECT_EQ(open.Text("NewHeightTxt"), "100 %");
  });
}

TEST_F(InitialisationTest, WithoutASourceSizeThereAreOnlyPercentages) {
  record.sizeUnavailable = 2;
  EXPECT_EQ(Run([](const OpenDialog& open) {
              EXPECT_EQ(open.Label("OrigWidthStatic"), "N/A");
              EXPECT_EQ(open.Label("OrigHeightStatic"), "N/A");
              EXPECT_EQ(open.Text("NewHeightTxt"), "100 %");
              for (const char* control : {"HorizontalRadio", "VerticalRadio", "ColorRadio",
                                          "GrayRadio", "MosaicUseRatioButton", "UsePercentChk"})
                EXPECT_TRUE(open.Get(control).IsDisabled()) << control;
              open.Get("GrayRadio").SetDisabled(false);
              open.Click("GrayRadio");
              open.Get("UsePercentChk").SetDisabled(false);
              open.Click("UsePercentChk");
              EXPECT_EQ(open.Text("NewWidthTxt"), "100 pt") << "bounds are not to be relied on";
              open.dialog.OnReturnKey();
            }),
            ResultCode::kSuccess);
  EXPECT_EQ(state.noOriginalSize, 2);
  EXPECT_EQ(record.isColor, 1) << "nobody listens to the choices of side and colour";
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
  EXPECT_EQ(Run([](const OpenDialog&) {}), ResultCode::kCannot);
  settings.SetSetting("windows.MnemonicsAlwaysOn", false);
  EXPECT_FALSE(shown());
}

}  // namespace
