#include "mosaic/dialog_harness.h"

MosaicTest::MosaicTest(const std::filesystem::path& resources) : PluginTest(resources) {
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
  class FunctionPresenter final : public nrvui::ui::DialogPresenter {
   public:
    explicit FunctionPresenter(const Person& function) : person(function) {}
    void Present(nrvui::ui::UI_Dialog& dialog) override { person({dialog}); }

   private:
    const Person& person;
  } presenter(person);
  const nrvui::ui::InstalledPresenter installed(presenter);
  MosaicParameters* params = &record;
  return host.Suites().Find<MosaicSuite>()->RunMosaicDialog(&state, &params);
}
