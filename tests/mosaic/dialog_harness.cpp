#include "mosaic/dialog_harness.h"

#include "nrvui/function_presenter.h"

MosaicTest::MosaicTest() {
  record.boundsLeft = -50;
  record.boundsTop = 40;
  record.boundsRight = 250;
  record.boundsBottom = 240;
  record.tilesAcross = 30;
  record.tilesDown = 20;
  record.isColor = 1;
  record.keepHorizontal = 1;
  EXPECT_EQ(module.StartUp(), ResultCode::kSuccess);
}

ResultCode MosaicTest::Run(const Person& person) {
  const FunctionPresenter presenter([&](nrvui::ui::UI_Dialog& dialog) { person({dialog}); });
  MosaicParameters* params = &record;
  return host.Suites().Find<MosaicSuite>()->RunMosaicDialog(&state, &params);
}
