#include "host/memory.h"
#include "host/suite_set.h"
#include "tests/host/test_plugin.h"

namespace {

class LifecycleTest : public FrameworkTest {};

TEST_F(LifecycleTest, AStartUpIntroducesThePluginAndAShutDownLeavesNothing) {
  EXPECT_EQ(module.Send("VX Menu", "VX Go"), ResultCode::kSuccess);
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  EXPECT_EQ(runningPlugin, Object());
  EXPECT_EQ(module.Ref()->name, "Plugin");
  ASSERT_EQ(host.Objects().notifiers.Size(), 1u);
  EXPECT_EQ(host.Objects().notifiers.Objects()[0]->name, "Plugin App Started Notifier");
  EXPECT_EQ(host.Objects().notifiers.Objects()[0]->type, "VX Application Started Notifier");
  char buffer[5];
  EXPECT_EQ(Object()->CopyName(buffer, sizeof(buffer)), 6);
  EXPECT_STREQ(buffer, "Plug");

  EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
  EXPECT_EQ(runningPlugin, nullptr);
  EXPECT_EQ(module.Globals(), nullptr);
  EXPECT_EQ(module.Ref()->name, "");
  EXPECT_EQ(host.Objects().notifiers.Size(), 0u);
}

TEST_F(LifecycleTest, AStartUpThatFailsLeavesNothing) {
  plan.continueStartup = ResultCode::kParameter;
  EXPECT_EQ(module.StartUp(), ResultCode::kParameter);
  EXPECT_EQ(module.Globals(), nullptr);
  EXPECT_TRUE(host.Leftovers().empty());
  EXPECT_EQ(handled, std::vector<std::string>{});
  ReturnHostBlock(nullptr);

  plan.continueStartup = ResultCode::kSuccess;
  plan.addStartedNotifier = false;
  EXPECT_EQ(module.StartUp(), ResultCode::kSuccess);
  EXPECT_EQ(Operations().Calls("VX Notifier Suite/AddNotifier"), 1u) << "of the first attempt";
}

TEST_F(LifecycleTest, UnloadReleasesAndReloadAcquiresAgain) {
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  void* const object = module.Globals();
  Object()->lockCount = 41;
  ASSERT_EQ(module.Send("QP Access", "Unload"), ResultCode::kSuccess);
  EXPECT_EQ(runningPlugin, nullptr);
  EXPECT_EQ(suiteAcquireCount, 0);
  plan.menuGo = [] { return ResultCode::kParameter; };
  EXPECT_EQ(module.Send("VX Menu", "VX Go"), ResultCode::kSuccess);

  Operations().Refuse("acquire/VX Context Suite", ResultCode{12});
  EXPECT_EQ(module.Send("QP Access", "Reload"), ResultCode{12});
  EXPECT_EQ(runningPlugin, object);
  EXPECT_EQ(module.Send("VX Menu", "VX Go"), ResultCode::kSuccess);
  EXPECT_EQ(module.Send("QP Access", "Reload"), ResultCode::kSuccess);
  EXPECT_EQ(module.Globals(), object);
  EXPECT_EQ(Object()->lockCount, 41);
  EXPECT_EQ(handled, (std::vector<std::string>{"finished", "prepared", "finished"}));
  EXPECT_EQ(Operations().Calls("QP Plug-ins Suite/SetPluginName"), 1u);
  EXPECT_EQ(Operations().Calls("VX Notifier Suite/AddNotifier"), 1u);
  EXPECT_EQ(module.Send("VX Menu", "VX Go"), ResultCode::kParameter);
}

TEST_F(LifecycleTest, LocksNest) {
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  for (const bool lock : {false, true, true, false}) (void)Object()->SetLocked(lock);
  EXPECT_EQ(Object()->lockCount, 1);
  EXPECT_EQ(host.Objects().accesses.Size(), 1u);
  (void)Object()->SetLocked(false);
  EXPECT_EQ(Object()->accessHandle, nullptr);
  EXPECT_EQ(Operations().Calls("QP Access Suite/AcquirePlugin"), 1u);
  EXPECT_EQ(Operations().Calls("QP Access Suite/ReleasePlugin"), 1u);

  for (const char* operation : {"QP Access Suite/AcquirePlugin", "QP Access Suite/ReleasePlugin"})
    Operations().Throw(operation, std::make_exception_ptr(std::bad_alloc()));
  for (const bool lock : {true, false}) EXPECT_NO_THROW((void)Object()->SetLocked(lock));
  EXPECT_EQ(Object()->lockCount, 0);
}

TEST_F(LifecycleTest, TheAboutBoxShowsItsTwoTextsOrNone) {
  using Texts = std::pair<std::string, std::string>;
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  standin::StringList texts;
  texts.Set(1, "Tiles");
  texts.Set(2, std::string(300, 'x'));
  host.Lists().Replace(standin::ListOwner::kPlugin, 16600, texts);
  EXPECT_EQ(module.About(), ResultCode::kSuccess);
  EXPECT_EQ(person.aboutBoxes.back(), (Texts{"Tiles", std::string(255, 'x')}));
  host.Lists().Replace(standin::ListOwner::kPlugin, 16600, {});
  EXPECT_EQ(module.About(), ResultCode::kSuccess);
  EXPECT_EQ(person.aboutBoxes.back(), Texts());

  KDMBasicSuite half = *Suite<KDMBasicSuite>();
  half.GetListString = [](ModuleRef, int32_t, int32_t, char* buffer, size_t) {
    buffer[0] = '?';  // what came before a refusal is no text
    return ResultCode::kCannot;
  };
  const void* const whole = std::exchange(heldSuite<KDMBasicSuite>, &half);
  EXPECT_EQ(module.About(), ResultCode::kSuccess);
  heldSuite<KDMBasicSuite> = whole;
  EXPECT_EQ(person.aboutBoxes.back(), Texts());
}

}  // namespace
