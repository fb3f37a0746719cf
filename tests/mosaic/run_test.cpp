#include <stdexcept>

#include "tests/support/mosaic_test.h"

namespace {

class RunTest : public MosaicTest {};

TEST_F(RunTest, ADialogThatFailsToGoAwayHasStillWrittenItsResult) {
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
  EXPECT_EQ(run(&state, &params), ResultCode::kCannot) << "no presenter is installed";
  EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
  EXPECT_EQ(run(&state, &params), ResultCode::kCannot);
}

TEST_F(RunTest, TheRatioIsTheHostsArithmetic) {
  const auto useRatio = [](const OpenDialog& open) {
    open.Enter("HorizontalCountTxt", "12");
    open.Enter("NewWidthTxt", "12");
    open.Click("MosaicUseRatioButton");
    open.dialog.OnReturnKey();
  };
  for (const char* refused : {"VX Real Math Suite/Divide", "VX Real Math Suite/Multiply"}) {
    host.Operations().Refuse(refused, ResultCode::kCannot);
    EXPECT_EQ(Run(useRatio), ResultCode::kSuccess);
    EXPECT_EQ(record.tilesDown, 20) << "no number leaves the fields as they are";
    EXPECT_EQ(record.newHeight, 200.0f);
  }
  host.Operations().Refuse("VX Real Math Suite/Multiply", ResultCode::kCannot, 2);
  EXPECT_EQ(Run(useRatio), ResultCode::kSuccess);
  EXPECT_EQ(record.tilesDown, 20);

  EXPECT_EQ(module.Send("QP Access", "Unload"), ResultCode::kSuccess);
  host.Operations().Refuse("acquire/QP Access Suite", ResultCode{12});
  EXPECT_EQ(module.Send("QP Access", "Reload"), ResultCode{12});
  EXPECT_EQ(Run(useRatio), ResultCode::kSuccess) << "the suite is borrowed where it is not held";
  EXPECT_EQ(record.tilesDown, 8);
  EXPECT_EQ(record.newHeight, 8.0f);
}

}  // namespace
