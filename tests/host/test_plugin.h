#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/plugin.h"
#include "host/plugin_main.h"
#include "platform/qpbasic/ledger.h"
#include "platform/standin/module.h"

/// What the next TestPlugin does; the framework creates the plug-in itself, so tests say it here.
struct TestPlan {
  bool addStartedNotifier = true;
  bool purges = false;
  ResultCode continueStartup = ResultCode::kSuccess;
  ResultCode applicationStarted = ResultCode::kSuccess;
  std::function<ResultCode()> menuGo = [] { return ResultCode::kSuccess; };
};

inline TestPlan plan;
inline std::vector<std::string> handled;  // the names of the operations that ran, in order
inline Plugin* runningPlugin = nullptr;

/// A plug-in on the framework with an optional suite, whose insides tests may look at.
class TestPlugin : public Plugin {
 public:
  explicit TestPlugin(PluginRef pluginRef) : Plugin(pluginRef) {
    addStartedNotifier = plan.addStartedNotifier;
  }
  TestPlugin(const TestPlugin&) = default;

  bool OnPurge() override { return plan.purges; }
  ResultCode ContinueStartup() override { return plan.continueStartup; }
  ResultCode OnMenuGo(PluginMessage*) override { return plan.menuGo(); }
  ResultCode OnApplicationStarted() override { return Note("started", plan.applicationStarted); }
  ResultCode OnNotify(PluginMessage*) override { return Note("notified"); }
  ResultCode OnScriptMessage(const char* selector, PluginMessage*) override {
    return Note(selector);
  }
  ResultCode SetCurrentPlugin(Plugin* plugin) override {
    runningPlugin = plugin;
    return ResultCode::kSuccess;
  }
  // Nobody may act on what these two answer.
  ResultCode FinishStartup() override { return Note("finished", ResultCode::kCannot); }
  ResultCode PrepareUnload(PluginMessage*) override {
    EXPECT_EQ(runningPlugin, this);
    return Note("prepared", ResultCode::kCannot);
  }

  using Plugin::accessHandle;
  using Plugin::lockCount;
  using Plugin::suppressRepeatedErrors;

 private:
  static ResultCode Note(const char* operation, ResultCode answer = ResultCode::kSuccess) {
    handled.push_back(operation);
    return answer;
  }
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

  standin::OperationRegistry& Operations() { return host.Operations(); }
  TestPlugin* Object() { return static_cast<TestPlugin*>(module.Globals()); }

  standin::RecordingUserInterface person;
  standin::Host host{person};
  standin::Module module{host, &PluginMain, "Framework"};
};
