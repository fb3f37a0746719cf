#include "mosaic/tesserae_ui.h"

#include "mosaic/run_mosaic_dialog.h"
#include "tests/support/mosaic_test.h"

namespace {

/// Lets a test see a plug-in's set of suites.
struct SuitesAccess : Plugin {
  static SuiteSet* SetOf(void* plugin) {
    return static_cast<Plugin*>(plugin)->*&SuitesAccess::suites;
  }
};

class TesseraeUITest : public PluginTest {};

TEST_F(TesseraeUITest, PublishesItsSuiteWhileItRuns) {
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  EXPECT_EQ(currentPlugin, module.Globals());
  EXPECT_EQ(module.Ref()->name, "TesseraeUI");
  EXPECT_EQ(host.Objects().notifiers.Objects()[0]->name, "TesseraeUI App Started Notifier");
  const MosaicSuite* table = host.Suites().Find<MosaicSuite>();
  ASSERT_TRUE(table);
  EXPECT_EQ(table->RunMosaicDialog, &RunMosaicDialog);
  EXPECT_EQ(host.Suites().Suites().Objects().back()->version, 1001);
  EXPECT_EQ(host.Suites().Suites().Objects().back()->internalVersion, 1);

  EXPECT_EQ(module.Send("QP Access", "Unload"), ResultCode::kSuccess);
  EXPECT_EQ(currentPlugin, nullptr);
  EXPECT_EQ(module.Send("QP Access", "Reload"), ResultCode::kSuccess);
  EXPECT_EQ(currentPlugin, module.Globals());

  EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
  EXPECT_EQ(currentPlugin, nullptr);
  EXPECT_TRUE(host.Leftovers().empty());
}

TEST_F(TesseraeUITest, AShutDownEndsWhenTheTableCannotBeFreed) {
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  SuiteSet* const left = SuitesAccess::SetOf(module.Globals());
  host.Operations().Refuse("QP Blocks Suite/FreeBlock", ResultCode{12});
  EXPECT_EQ(module.ShutDown(), ResultCode{12});
  EXPECT_EQ(module.Globals(), nullptr);
  EXPECT_EQ(currentPlugin, nullptr);
  EXPECT_EQ(host.Suites().Users("QP Access Suite"), 1u);

  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  ASSERT_EQ(module.Send("QP Access", "Unload"), ResultCode::kSuccess);
  host.Suites().SetAbsent("QP Blocks Suite");
  EXPECT_EQ(module.ShutDown(), ResultCode::kCannot);
  EXPECT_EQ(module.Globals(), nullptr);
  ::operator delete(left);  // the plug-in that knew of it is gone
}

}  // namespace
