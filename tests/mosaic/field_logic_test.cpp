#include "mosaic/dialog_harness.h"

namespace {

class FieldLogicTest : public MosaicTest {};

TEST_F(FieldLogicTest, TheRatioButtonDerivesTheOtherSide) {
  struct Case {
    int32_t width, height;
    const char* gestures;
    int32_t across, down;
    float newWidth, newHeight;
  };
  const Case cases[] = {
      {300, 200, "click VerticalRadio\nenter VerticalCountTxt 7\nenter NewHeightTxt 50", 11, 7, 75,
       50},
      {300, 200, "click HorizontalRadio\nenter HorizontalCountTxt 10\nenter NewWidthTxt 75", 10, 7,
       75, 50},
      {400, 300, "enter HorizontalCountTxt 12", 12, 9, 400, 300},
      {300, 200, "enter HorizontalCountTxt 10.9\nenter NewWidthTxt 75.9", 10, 7, 75.9f, 50},
      {300, 0, "enter HorizontalCountTxt 12\nenter NewWidthTxt 33", 12, 12, 33, 33},
      {0, 200, "enter HorizontalCountTxt 12", 12, 20, 0, 200},
      {200, 100, "click UsePercentChk\nclick VerticalRadio", 40, 20, 2, 1},
      {8640, 1, "click VerticalRadio\nenter VerticalCountTxt 100", 32767, 100, 8640, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.gestures);
    SetSource(c.width, c.height);
    record.keepHorizontal = 1;
    record.tilesAcross = 30;
    record.tilesDown = 20;
    state = {};
    EXPECT_EQ(Play(c.gestures + std::string("\nclick MosaicUseRatioButton\nclick okButton")),
              ResultCode::kSuccess);
    EXPECT_EQ(record.tilesAcross, c.across);
    EXPECT_EQ(record.tilesDown, c.down);
    EXPECT_EQ(record.newWidth, c.newWidth);
    EXPECT_EQ(record.newHeight, c.newHeight);
  }
  EXPECT_GE(host.Operations().Calls("VX Real Math Suite/Multiply"), 14u);
  EXPECT_GE(host.Operations().Calls("VX Real Math Suite/Divide"), 5u);
}

TEST_F(FieldLogicTest, AResultThatIsNoNumberLeavesTheFields) {
  for (const size_t call : {1, 2}) {
    host.Operations().Refuse("VX Real Math Suite/Multiply", ResultCode::kCannot, call);
    EXPECT_EQ(Play("enter HorizontalCountTxt 12\nenter NewWidthTxt 12\n"
                   "click MosaicUseRatioButton\nclick okButton"),
              ResultCode::kSuccess);
    EXPECT_EQ(record.tilesDown, 20);
    EXPECT_EQ(record.newHeight, 200.0f);
  }
}

TEST_F(FieldLogicTest, SpacingStaysBelowTheCounts) {
  LookAt([](const OpenDialog& open) {
    open.Enter("TileSpaceHorzTxt", "12");
    open.Enter("TileSpaceVertTxt", "8");
    open.Enter("HorizontalCountTxt", "10");
    EXPECT_EQ(open.Number("TileSpaceHorzTxt"), 8.0);
    EXPECT_EQ(open.Greatest("TileSpaceHorzTxt"), 8.0);
    EXPECT_EQ(open.Number("TileSpaceVertTxt"), 8.0);

    open.Enter("VerticalCountTxt", "10");
    EXPECT_EQ(open.Number("TileSpaceVertTxt"), 8.0) << "equal to the bound is not above it";
    open.Enter("VerticalCountTxt", "20");
    EXPECT_EQ(open.Number("TileSpaceVertTxt"), 8.0) << "a spacing is never raised";
    EXPECT_EQ(open.Greatest("TileSpaceVertTxt"), 18.0);

    // A count that code changed takes effect with the next count that a person changes.
    open.Get<UI_UnitNumberEdit>("VerticalCountTxt").SetNumber(5);
    EXPECT_EQ(open.Number("TileSpaceVertTxt"), 8.0);
    open.Enter("HorizontalCountTxt", "10.5");
    EXPECT_EQ(open.Greatest("TileSpaceHorzTxt"), 8.5);
    EXPECT_EQ(open.Number("TileSpaceVertTxt"), 3.0);

    for (const char* count : {"2", "1"}) {
      open.Enter("HorizontalCountTxt", count);
      EXPECT_EQ(open.Greatest("TileSpaceHorzTxt"), 0.0);
      EXPECT_EQ(open.Number("TileSpaceHorzTxt"), 0.0);
    }
  });
}

}  // namespace
