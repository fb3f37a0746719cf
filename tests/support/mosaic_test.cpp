#include "tests/support/mosaic_test.h"

#include "tests/support/function_presenter.h"

ResultCode MosaicTest::Run(const Person& person) {
  const FunctionPresenter presenter([&](nrvui::ui::UI_Dialog& dialog) { person({dialog}); });
  return RunDialog(record, state);
}
