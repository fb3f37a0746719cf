#include "host/memory.h"
#include "host/suite_set.h"
#include "tests/host/test_plugin.h"

namespace {

class LifecycleTest : public FrameworkTest {};

TEST_F(LifecycleTest, StartUpThatFailsReleasesEverythingAndCanBeRepeated) {
  plan.continueStartup = ResultCode::kParameter;
  EXPECT_EQ(module.StartUp(), ResultCode::kParameter);
  EXPECT_EQ(module.Globals(), nullptr);
  EXPECT_TRUE(host.Leftovers().empty());
  EXPECT_TRUE(host.Objects().notifiers.Objects().empty());
  EXPECT_EQ(handled, std::vector<std::string>{});
  FreeHostBlock(nullptr);

  plan.continueStartup = ResultCode::kSuccess;
  plan.addStartedNotifier = false;
  EXPECT_EQ(module.StartUp(), ResultCode::kSuccess);
  EXPECT_EQ(Operations().Calls("VX Notifier Suite/AddNotifier"), 1u)
      << "only in the first start-up";
}

TEST_F(LifecycleTest, MembersSurviveUnloadAndReloadAndTheHooksAreCalled) {
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  EXPECT_EQ(runningPlugin, Object());
  char buffer[5];
  EXPECT_EQ(Object()->CopyName(buffer, sizeof(buffer)), 6);
  EXPECT_STREQ(buffer, "Plug");
  Object()->lockCount = 41;
  ASSERT_EQ(module.Send(messages::kUnload), ResultCode::kSuccess);
  EXPECT_EQ(runningPlugin, nullptr);
  plan.menuGo = [] { return ResultCode::kParameter; };
  EXPECT_EQ(module.Send(messages::kMenuGo), ResultCode::kSuccess);

  EXPECT_EQ(module.Send(messages::kReload), ResultCode::kSuccess);
  EXPECT_EQ(Object()->lockCount, 41);
  EXPECT_EQ(handled, (std::vector<std::string>{"finished", "prepared", "finished"}));
  EXPECT_EQ(module.Send(messages::kMenuGo), ResultCode::kParameter);
}

TEST_F(LifecycleTest, ShutDownOfOneObjectLeavesTheOtherUnloadedUntilItsReload) {
  for (const bool reloads : {true, false}) {
    ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
    {
      standin::Module second(host, &PluginMain, "Second");
      ASSERT_EQ(second.StartUp(), ResultCode::kSuccess);
    }
    const size_t shown = user.aboutBoxes.size();
    EXPECT_EQ(module.About(), ResultCode::kSuccess);
    EXPECT_EQ(user.aboutBoxes.size(), shown);
    if (reloads) {
      EXPECT_EQ(module.Send(messages::kReload), ResultCode::kSuccess);
      EXPECT_EQ(module.About(), ResultCode::kSuccess);
      EXPECT_EQ(user.aboutBoxes.size(), shown + 1);
    }
    EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
    EXPECT_EQ(suiteAcquireCount, 0);
    EXPECT_EQ(host.Leftovers(), std::vector<std::string>{});
  }
}

TEST_F(LifecycleTest, ModuleIsShutDownBeforeItIsDestroyed) {
  PluginRef plugin;
  {
    standin::Module destroyed(host, &PluginMain, "Destroyed");
    plugin = destroyed.Ref();
    ASSERT_EQ(destroyed.StartUp(), ResultCode::kSuccess);
  }
  EXPECT_TRUE(host.Leftovers().empty());
  EXPECT_FALSE(host.Objects().IsPlugin(plugin));
  EXPECT_EQ(runningPlugin, nullptr);
}

TEST_F(LifecycleTest, OnlyTheFirstLockAndTheLastUnlockReachTheHost) {
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  for (const bool lock : {false, true}) (void)Object()->SetLocked(lock);
  EXPECT_EQ(host.Objects().accesses.Objects().size(), 1u);
  for (const bool lock : {true, false}) (void)Object()->SetLocked(lock);
  EXPECT_EQ(Object()->lockCount, 1);
  EXPECT_EQ(host.Objects().accesses.Objects().size(), 1u);
  (void)Object()->SetLocked(false);
  EXPECT_EQ(Object()->accessHandle, nullptr);
  EXPECT_EQ(Operations().Calls("QP Access Suite/AcquirePlugin"), 1u);
  EXPECT_EQ(Operations().Calls("QP Access Suite/ReleasePlugin"), 1u);

  for (const char* operation : {"QP Access Suite/AcquirePlugin", "QP Access Suite/ReleasePlugin"})
    Operations().Throw(operation, std::make_exception_ptr(std::bad_alloc()));
  for (const bool lock : {true, false}) EXPECT_NO_THROW((void)Object()->SetLocked(lock));
  EXPECT_EQ(Object()->lockCount, 0);
}

}  // namespace
