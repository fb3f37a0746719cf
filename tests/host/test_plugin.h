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

/// The behaviour of the next TestPlugin, which the framework creates.
struct TestPlan {
  bool addStartedNotifier = true;
  bool purges = false;
  ResultCode continueStartup = ResultCode::kSuccess;
  ResultCode applicationStarted = ResultCode::kSuccess;
  std::function<ResultCode()> menuGo = [] { return ResultCode::kSuccess; };
};

inline TestPlan plan;
inline std::vector<std::string> handled;  // names of the operations called, in order
inline Plugin* runningPlugin = nullptr;

/// A plug-in with optional suites, whose members tests can read.
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
  // The results of these two must be ignored.
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

/// Runs the framework with a TestPlugin in the stand-in host.
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

  standin::RecordingUserInterface user;
  standin::Host host{user};
  standin::Module module{host, &PluginMain, "Framework"};
};
