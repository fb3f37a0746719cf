#include "host/test_plugin.h"

#include <new>

TestPlan plan;
std::vector<std::string> handled;
Plugin* runningPlugin = nullptr;

namespace {

const void* missingOptional = nullptr;

}  // namespace

constinit const SuiteImport kPluginSuites[] = {
    ImportOf<QPBlocksSuite>(),
    {"VX Suite For Nobody", 1, nullptr},
    ImportOf<VXUnicodeStringSuite>(),
    {nullptr, kOptionalSuitesFollow, nullptr},
    {"VX Suite Of Tomorrow", 1, &missingOptional},
    ImportOf<VXUserSuite>(),
    ImportOf<VXUserInterfaceMainSuite>(),
    {nullptr, 0, nullptr},
};

Plugin* CreatePlugin(PluginRef pluginRef) {
  return new TestPlugin(pluginRef);
}

Plugin* RebindAfterReload(void* kept) {
  const TestPlugin saved(*static_cast<const TestPlugin*>(kept));
  return ::new (kept) TestPlugin(saved);
}

TestPlugin::TestPlugin(PluginRef reference) : Plugin(reference) {
  addStartedNotifier = plan.addStartedNotifier;
}

ResultCode TestPlugin::OnApplicationStarted() {
  handled.push_back("started");
  return plan.applicationStarted;
}

ResultCode TestPlugin::SetCurrentPlugin(Plugin* plugin) {
  runningPlugin = plugin;
  return ResultCode::kSuccess;
}

ResultCode TestPlugin::FinishStartup() {
  handled.push_back("finished");
  return ResultCode::kCannot;  // nobody may act on it
}

ResultCode TestPlugin::PrepareUnload(PluginMessage*) {
  EXPECT_EQ(runningPlugin, this);
  handled.push_back("prepared");
  return ResultCode::kCannot;  // nobody may act on it
}

ResultCode TestPlugin::OnNotify(PluginMessage*) {
  handled.push_back("notified");
  return ResultCode::kSuccess;
}

ResultCode TestPlugin::OnScriptMessage(const char* selector, PluginMessage*) {
  handled.push_back(std::string("script ") + selector);
  return ResultCode::kSuccess;
}
