#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "platform/nrvui/ui_edits.h"
#include "platform/nrvui/ui_node_manager.h"
#include "tests/support/mosaic_test.h"
#include "tests/support/temporary_folder.h"

namespace {

using nrvui::controls::UI_UnitNumberEdit;

class RunTest : public MosaicTest {};

TEST_F(RunTest, ShowsTheSourceAsLengthsEvenWhereTheNewSizeIsAPercentage) {
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
    EXPECT_EQ(open.Label("OrigHeightStatic"), "200 pt");
    EXPECT_EQ(open.Label("OrigWidthStatic"), "300 pt") << "the source's size is no percentage";
    EXPECT_EQ(open.Text("NewHeightTxt"), "100 %");
  });
}

TEST_F(RunTest, WithoutASourceSizeThereAreOnlyPercentages) {
  record.sizeUnavailable = 2;
  EXPECT_EQ(Run([](const OpenDialog& open) {
              EXPECT_EQ(open.Label("OrigWidthStatic"), "N/A");
              EXPECT_EQ(open.Label("OrigHeightStatic"), "N/A");
              open.Get("GrayRadio").SetDisabled(false);
              open.Click("GrayRadio");
              open.Get("UsePercentChk").SetDisabled(false);
              open.Click("UsePercentChk");
              EXPECT_EQ(open.Text("NewWidthTxt"), "100 pt") << "bounds are not to be relied on";
              open.dialog.OnReturnKey();
            }),
            ResultCode::kSuccess);
  EXPECT_EQ(record.isColor, 1) << "nobody listens to the choices of side and colour";
}

TEST_F(RunTest, MnemonicsFollowThePlatformSetting) {
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

TEST_F(RunTest, WritesItsResultEvenIfTheDialogCannotBeDestroyed) {
  class FailingWindow final : public nrvui::ui::NodeObserver {
   public:
    void NodeChanged(nrvui::ui::UI_Node&) override {}
    void NodeDestroyed(nrvui::ui::UI_Node&) override { throw std::runtime_error("window lost"); }
  } observer;
  EXPECT_EQ(Run([&](const OpenDialog& open) {
              open.dialog.UI_SetObserver(&observer);
              open.Enter("HorizontalCountTxt", "9");
              open.dialog.OnReturnKey();
            }),
            ResultCode::kCannot);
  EXPECT_EQ(record.tilesAcross, 9);
  EXPECT_EQ(state.aspectRatio, 1.5f);
  EXPECT_TRUE(host.Sheets().Leftovers().empty());
}

TEST_F(RunTest, BadCallsAreRefused) {
  const auto run = host.Suites().Find<MosaicSuite>()->RunMosaicDialog;
  MosaicParameters* params = &record;
  MosaicParameters* none = nullptr;
  EXPECT_EQ(run(nullptr, &params), ResultCode::kCannot);
  EXPECT_EQ(run(&state, nullptr), ResultCode::kCannot);
  EXPECT_EQ(run(&state, &none), ResultCode::kCannot);
  EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
  EXPECT_EQ(run(&state, &params), ResultCode::kCannot);
}

TEST_F(RunTest, ComputesTheRatioThroughTheHost) {
  const auto useRatio = [](const OpenDialog& open) {
    open.Enter("HorizontalCountTxt", "12");
    open.Enter("NewWidthTxt", "12");
    open.Click("MosaicUseRatioButton");
    open.dialog.OnReturnKey();
  };
  for (const auto& [refused, call] : {std::pair("VX Real Math Suite/Divide", 1),
                                      {"VX Real Math Suite/Multiply", 1},
                                      {"VX Real Math Suite/Multiply", 2}}) {
    host.Operations().Refuse(refused, ResultCode::kCannot, call);
    EXPECT_EQ(Run(useRatio), ResultCode::kSuccess);
    EXPECT_EQ(record.tilesDown, 20) << "no number leaves the fields as they are";
    EXPECT_EQ(record.newHeight, 200.0f);
  }
  EXPECT_EQ(module.Send("QP Access", "Unload"), ResultCode::kSuccess);
  host.Operations().Refuse("acquire/QP Access Suite", ResultCode{12});
  EXPECT_EQ(module.Send("QP Access", "Reload"), ResultCode{12});
  EXPECT_EQ(Run(useRatio), ResultCode::kSuccess) << "the suite is borrowed where it is not held";
  EXPECT_EQ(record.tilesDown, 8);
  EXPECT_EQ(record.newHeight, 8.0f);
}

TEST_F(RunTest, UsesTheControlsThatTheLayoutHoldsAtThatMoment) {
  EXPECT_EQ(Run([](const OpenDialog& open) {
              auto& former = open.Get<UI_UnitNumberEdit>("VerticalCountTxt");
              former.UI_SetNodeID("former");
              const boost::intrusive_ptr<UI_UnitNumberEdit> field(new UI_UnitNumberEdit);
              field->UI_SetNodeID("VerticalCountTxt");
              former.UI_GetParentContainer()->ChildPushBack(field);
              open.Enter("HorizontalCountTxt", "12");
              open.Click("MosaicUseRatioButton");
              EXPECT_EQ(field->GetNumber(), 8);
              EXPECT_EQ(former.GetNumber(), 20);
              open.dialog.OnReturnKey();
            }),
            ResultCode::kSuccess);
  EXPECT_EQ(record.tilesDown, 8);
}

TEST_F(RunTest, WritesToTheRecordWhereItThenIs) {
  const MosaicParameters given = record;
  MosaicParameters moved{};
  MosaicParameters* params = &record;
  const FunctionPresenter presenter([&](nrvui::ui::UI_Dialog& dialog) {
    params = &moved;
    dialog.OnReturnKey();
  });
  EXPECT_EQ(host.Suites().Find<MosaicSuite>()->RunMosaicDialog(&state, &params),
            ResultCode::kSuccess);
  EXPECT_EQ(moved.tilesAcross, 30);
  EXPECT_EQ(std::memcmp(&record, &given, sizeof record), 0);
}

TEST(Layout, WithoutAControlOfItsClassShowsNoDialog) {
  std::ostringstream layout;
  layout
      << std::ifstream(standin::ResourceFolders::OfProgram().plugin / "layouts/16301.xml").rdbuf();
  const FunctionPresenter presenter([](nrvui::ui::UI_Dialog& dialog) { dialog.OnReturnKey(); });
  const TemporaryFolder resources;
  HostedModule hosted(&PluginMain, "TesseraeUI", {resources.path, resources.path});
  EXPECT_EQ(hosted.module.StartUp(), ResultCode::kSuccess);
  const struct {
    std::string element;
    std::string replacement;
    ResultCode code;
  } cases[] = {
      {"<number", "<number", ResultCode::kSuccess},
      {"<text-button id=\"MosaicUse", "<button id=\"MosaicUse", ResultCode::kCannot},
      {"id=\"DeleteRasterChk", "id=\"Other", ResultCode::kCannot},
  };
  for (const auto& [element, replacement, code] : cases) {
    std::string text = layout.str();
    const size_t place = text.find(element);
    ASSERT_NE(place, text.npos) << element;
    resources.Write("layouts/16301.xml", text.replace(place, element.size(), replacement));
    MosaicParameters record = SampleRecord();
    MosaicDialogState state{};
    EXPECT_EQ(hosted.RunDialog(record, state), code) << replacement;
  }
}

}  // namespace
