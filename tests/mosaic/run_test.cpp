#include <stdexcept>

#include "host/error.h"
#include "mosaic/dialog_harness.h"

namespace {

class RunTest : public MosaicTest {
 protected:
  RunTest() {
    record.tilesAcrossCopy = record.tilesDownCopy = record.reserved28 = -1;
    state.reserved6 = 0xA5;
    givenRecord = record;
    givenState = state;
  }

  void ExpectUntouched() const {
    EXPECT_EQ(std::memcmp(&record, &givenRecord, sizeof(record)), 0);
    EXPECT_EQ(std::memcmp(&state, &givenState, sizeof(state)), 0);
  }

  MosaicParameters givenRecord;
  MosaicDialogState givenState;
};

TEST_F(RunTest, EveryOtherWayOutWritesNothing) {
  const std::string changes =
      "enter NewWidthTxt 12\nenter HorizontalCountTxt 9\nclick GrayRadio\nclick VerticalRadio\n"
      "click DeleteRasterChk\nclick UsePercentChk\n";
  for (const char* way : {"key Escape", "close", "click cancelButton"}) {
    EXPECT_EQ(Play(changes + way), ResultCode::kCancelled) << way;
    ExpectUntouched();
  }
  EXPECT_EQ(Run([](const OpenDialog&) {}), ResultCode::kCancelled);
  ExpectUntouched();
  EXPECT_TRUE(host.Sheets().Leftovers().empty());
}

TEST_F(RunTest, WhateverThrowsMeansThatTheDialogCannotBeShown) {
  EXPECT_EQ(Run([](const OpenDialog&) { throw 7; }), ResultCode::kCannot);
  EXPECT_EQ(Run([](const OpenDialog& open) {
              open.Get("NewWidthTxt").UI_SetNodeID("Renamed");
              open.dialog.OnReturnKey();
            }),
            ResultCode::kCannot);
  for (const char* operation :
       {"acquire/VX User Interface Main Suite", "VX User Interface Main Suite/GetSheetFactory"}) {
    host.Operations().Throw(operation, std::make_exception_ptr(std::runtime_error("x")));
    EXPECT_EQ(Run([](const OpenDialog&) {}), ResultCode::kCannot) << operation;
  }
  host.Operations().Throw("VX Real Math Suite/Multiply",
                          std::make_exception_ptr(vx::Error(ResultCode::kParameter)));
  EXPECT_EQ(Run([](const OpenDialog& open) { open.Click("MosaicUseRatioButton"); }),
            ResultCode::kCannot);
  ExpectUntouched();
  EXPECT_TRUE(host.Sheets().Leftovers().empty());
}

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

TEST_F(RunTest, WithoutItsLayoutTheDialogIsEmptyAndItsControlsAreMissed) {
  host.Suites().SetAbsent("VX User Interface Main Suite");
  EXPECT_EQ(Run([](const OpenDialog&) {}), ResultCode::kCannot);
  ExpectUntouched();
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
  ExpectUntouched();
}

/// A caller whose host has other resources.
class CallerWith : public MosaicTest {
 public:
  explicit CallerWith(const DamagedResources& resources) : MosaicTest(resources.Root()) {}
  void TestBody() override {}
  using MosaicTest::host;
  using MosaicTest::record;
  using MosaicTest::Run;
};

TEST(DamagedLayout, AControlThatIsMissingOrOfAnotherClassStopsTheDialog) {
  const std::pair<const char*, const char*> swaps[] = {
      {"\"NewWidthTxt\"", "\"Gone\""},
      {"\"OrigHeightStatic\"", "\"Gone\""},
      {"\"GrayRadio\"", "\"Gone\""},
      {"\"TileSpaceVertTxt\"", "\"UsePercentChk\""},
      {"\"MosaicUseRatioButton\"", "\"DeleteRasterChk\""},
      {"\"HorizontalCountTxt\"", "\"OrigWidthStatic\""},
  };
  for (const auto& [one, other] : swaps) {
    SCOPED_TRACE(one);
    const DamagedResources resources;
    resources.SwapInLayout(one, other);
    CallerWith caller(resources);
    const MosaicParameters given = caller.record;
    EXPECT_EQ(caller.Run([](const OpenDialog&) { ADD_FAILURE() << "the dialog was shown"; }),
              ResultCode::kCannot);
    EXPECT_EQ(std::memcmp(&caller.record, &given, sizeof(given)), 0);
    EXPECT_TRUE(caller.host.Sheets().Leftovers().empty());
  }
}

TEST(DamagedLayout, AResetButtonIsNotTheToolkitsCancel) {
  const DamagedResources resources;
  resources.SwapInLayout("\"cancelButton\"", "\"cancel_ResetButton\"");
  CallerWith caller(resources);
  EXPECT_EQ(caller.Run([](const OpenDialog& open) {
    EXPECT_TRUE(open.dialog.GetOkButton());
    EXPECT_FALSE(open.dialog.GetCancelButton());
    open.dialog.OnCloseButton();
  }),
            ResultCode::kCancelled);
}

TEST(DamagedLayout, ASpacingOfTheLayoutIsPulledToItsBound) {
  const DamagedResources resources;
  resources.SwapInLayout("id=\"TileSpaceHorzTxt\" value=\"0\"",
                         "id=\"TileSpaceHorzTxt\" value=\"99\"");
  CallerWith caller(resources);
  EXPECT_EQ(caller.Run([](const OpenDialog& open) {
    EXPECT_EQ(open.Number("TileSpaceHorzTxt"), 28.0);
    EXPECT_EQ(open.Number("TileSpaceVertTxt"), 0.0);
  }),
            ResultCode::kCancelled);
}

}  // namespace
