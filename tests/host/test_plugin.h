#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/plugin.h"
#include "host/plugin_factory.h"
#include "host/plugin_main.h"
#include "platform/qpbasic/ledger.h"
#include "platform/standin/host.h"
#include "platform/standin/module.h"

/// What the next TestPlugin does; the framework creates the plug-in itself, so tests say it here.
struct TestPlan {
  bool addStartedNotifier = true;
  bool purges = false;
  ResultCode continueStartup = ResultCode::kSuccess;
  ResultCode applicationStarted = ResultCode::kSuccess;
  std::function<ResultCode()> menuGo = [] { return ResultCode::kSuccess; };
};

extern TestPlan plan;
extern std::vector<std::string> handled;  // the names of the operations that ran, in order
extern Plugin* runningPlugin;

/// A plug-in on the framework with an optional suite, whose insides tests may look at.
class TestPlugin : public Plugin {
 public:
  explicit TestPlugin(PluginRef pluginRef);
  TestPlugin(const TestPlugin&) = default;

  ResultCode OnApplicationStarted() override;
  bool OnPurge() override { return plan.purges; }
  ResultCode SetCurrentPlugin(Plugin* plugin) override;
  ResultCode ContinueStartup() override { return plan.continueStartup; }
  ResultCode FinishStartup() override;
  ResultCode PrepareUnload(PluginMessage*) override;
  ResultCode OnNotify(PluginMessage*) override;
  ResultCode OnMenuGo(PluginMessage*) override { return plan.menuGo(); }
  ResultCode OnScriptMessage(const char* selector, PluginMessage*) override;

  using Plugin::accessHandle;
  using Plugin::lastErrorTime;
  using Plugin::lockCount;
  using Plugin::suppressRepeatedErrors;
};

/// The framework under the stand-in host.
class FrameworkTest : public testing::Test {
 protected:
  FrameworkTest() {
    plan = TestPlan();
    handled.clear();
  }
  void TearDown() override {
    EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
    EXPECT_EQ(host.Leftovers(), std::vector<std::string>{});
  }

  standin::OperationBook& Operations() { return host.Operations(); }
  TestPlugin* Object() { return static_cast<TestPlugin*>(module.Globals()); }

  standin::RecordingUserInterface person;
  standin::Host host{person};
  standin::Module module{host, &PluginMain, "Framework"};
};
