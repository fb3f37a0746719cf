#include <new>
#include <stdexcept>

#include "host/error.h"
#include "host/test_plugin.h"

namespace {

class DispatchTest : public FrameworkTest {
 protected:
  DispatchTest() { EXPECT_EQ(module.StartUp(), ResultCode::kSuccess); }
};

/// Answers every message with the name of the operation that it reached.
class EchoPlugin : public Plugin {
 public:
  EchoPlugin() : Plugin(nullptr) { name[0] = '\0'; }

#define ECHO(operation)                           \
  ResultCode operation(PluginMessage*) override { \
    reached = #operation;                         \
    return ResultCode::kSuccess;                  \
  }
  ECHO(OnAbout)
  ECHO(OnUnload)
  ECHO(OnAcquireProperty)
  ECHO(OnReleaseProperty)
  ECHO(OnDoAction)
  ECHO(OnMenuGo)
  ECHO(OnMenuUpdate)
  ECHO(OnFilterGetParameters)
  ECHO(OnFilterGo)
  ECHO(OnPluginGroupNotifyEdits)
  ECHO(OnPluginGroupUpdate)
  ECHO(OnFileFormatGetParameters)
  ECHO(OnFileFormatGo)
  ECHO(OnFileFormatCheck)
  ECHO(OnFileFormatUpdate)
  ECHO(OnFileFormatDoAction)
  ECHO(OnToolEditOptions)
  ECHO(OnToolTrackCursor)
  ECHO(OnToolMouseDown)
  ECHO(OnToolMouseDrag)
  ECHO(OnToolMouseUp)
  ECHO(OnToolSelect)
  ECHO(OnToolDeselect)
  ECHO(OnToolReselect)
  ECHO(OnToolDecreaseDiameter)
  ECHO(OnToolIncreaseDiameter)
  ECHO(OnLiveEffectEditParameters)
  ECHO(OnLiveEffectGoLive)
  ECHO(OnLiveEffectInterpolateParameters)
  ECHO(OnLiveEffectGetConversionParameters)
  ECHO(OnLiveEffectInputType)
  ECHO(OnLiveEffectScaleParameters)
  ECHO(OnLiveEffectConvertColorSpace)
  ECHO(OnLiveEffectAdjustColors)
  ECHO(OnLiveEffectHandleMerge)
  ECHO(OnLiveEffectIsCompatible)
  ECHO(OnTimerGo)
  ECHO(OnClipboardGo)
  ECHO(OnClipboardCanCopy)
  ECHO(OnClipboardClone)
  ECHO(OnClipboardDispose)
  ECHO(OnWriteWorkspace)
  ECHO(OnRestoreWorkspace)
  ECHO(OnDefaultWorkspace)
  ECHO(OnControlPanelCreateControlGroup)
  ECHO(OnControlPanelGroupVisibility)
  ECHO(OnControlPanelSubGroupVisibility)
#undef ECHO

  std::string reached;
};

TEST(Dispatch, EveryMessageReachesItsOwnOperation) {
  struct Case {
    const char* caller;
    const char* selector;
    const char* operation;
  };
  const Case cases[] = {
      {"QP Access", "Unload", "OnUnload"},
      {"QP Interface", "About", "OnAbout"},
      {"QP Properties", "Acquire", "OnAcquireProperty"},
      {"QP Properties", "Release", "OnReleaseProperty"},
      {"Action Manager", "Do Action", "OnDoAction"},
      {"VX Menu", "VX Go", "OnMenuGo"},
      {"VX Menu", "VX Update", "OnMenuUpdate"},
      {"VX Filter", "VX Get Parameters", "OnFilterGetParameters"},
      {"VX Filter", "VX Go", "OnFilterGo"},
      {"VX Plugin Group", "VX Notify Edits", "OnPluginGroupNotifyEdits"},
      {"VX Plugin Group", "VX Update", "OnPluginGroupUpdate"},
      {"VX File Format", "VX Get Parameters", "OnFileFormatGetParameters"},
      {"VX File Format", "VX Go", "OnFileFormatGo"},
      {"VX File Format", "VX Check", "OnFileFormatCheck"},
      {"VX File Format", "VX Update VX140", "OnFileFormatUpdate"},
      {"VX File Format", "Do Action", "OnFileFormatDoAction"},
      {"VX Tool", "VX Edit Options", "OnToolEditOptions"},
      {"VX Tool", "VX Track Cursor", "OnToolTrackCursor"},
      {"VX Tool", "VX Mouse Down", "OnToolMouseDown"},
      {"VX Tool", "VX Mouse Drag", "OnToolMouseDrag"},
      {"VX Tool", "VX Mouse Up", "OnToolMouseUp"},
      {"VX Tool", "VX Select", "OnToolSelect"},
      {"VX Tool", "VX Deselect", "OnToolDeselect"},
      {"VX Tool", "VX Reselect", "OnToolReselect"},
      {"VX Tool", "VX Decrease Diameter", "OnToolDecreaseDiameter"},
      {"VX Tool", "VX Increase Diameter", "OnToolIncreaseDiameter"},
      {"VX Live Effect", "VX Live Effect Edit Parameters", "OnLiveEffectEditParameters"},
      {"VX Live Effect", "VX Live Effect Go Live", "OnLiveEffectGoLive"},
      {"VX Live Effect", "VX Live Effect Interpolate Parameters",
       "OnLiveEffectInterpolateParameters"},
      {"VX Live Effect", "VX Live Effect Get Conversion Parameters",
       "OnLiveEffectGetConversionParameters"},
      {"VX Live Effect", "VX Live Effect Input Type", "OnLiveEffectInputType"},
      {"VX Live Effect", "VX Live Effect Scale Parameters", "OnLiveEffectScaleParameters"},
      {"VX Live Effect", "VX Live Effect Convert Color Space", "OnLiveEffectConvertColorSpace"},
      {"VX Live Effect", "VX Live Effect Adjust Colors", "OnLiveEffectAdjustColors"},
      {"VX Live Effect", "VX Live Effect Handle Merge", "OnLiveEffectHandleMerge"},
      {"VX Live Effect", "VX Live Effect Is Compatible", "OnLiveEffectIsCompatible"},
      {"VX Timer", "VX Go", "OnTimerGo"},
      {"VX Clipboard", "VX Go", "OnClipboardGo"},
      {"VX Clipboard", "VX Can Copy", "OnClipboardCanCopy"},
      {"VX Clipboard", "VX Clone", "OnClipboardClone"},
      {"VX Clipboard", "VX Dispose", "OnClipboardDispose"},
      {"Workspace Manager", "Write Woskspace", "OnWriteWorkspace"},
      {"Workspace Manager", "Restore Woskspace", "OnRestoreWorkspace"},
      {"Workspace Manager", "Default Woskspace", "OnDefaultWorkspace"},
      {"Herder Control Panel", "VX Control Panel Create ControlGroup",
       "OnControlPanelCreateControlGroup"},
      {"Herder Control Panel", "VX Control Panel Group Visibility",
       "OnControlPanelGroupVisibility"},
      {"Herder Control Panel", "VX Control Panel SubGroup Visibility",
       "OnControlPanelSubGroupVisibility"},
      {"VX Menu", "vx go", ""},
      {"VX Menu", "VX Go ", ""},
      {"VX Men", "VX Go", ""},
      {"QP Access", "Reload", ""},
      {"", "", ""},
  };
  EchoPlugin plugin;
  PluginMessage message{};
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.caller) + " / " + c.selector);
    plugin.reached.clear();
    const bool handles = *c.operation;
    EXPECT_EQ(plugin.HandleMessage(c.caller, c.selector, &message),
              handles ? ResultCode::kSuccess : ResultCode::kNotHandled);
    EXPECT_EQ(plugin.reached, c.operation);
  }
}

TEST_F(DispatchTest, WhatNobodyHandlesIsAnsweredWithSuccessAndNotShown) {
  EXPECT_EQ(module.Send("VX Filter", "VX Go"), ResultCode::kSuccess);
  EXPECT_EQ(module.Send("VX Nobody", "VX Go"), ResultCode::kSuccess);
  EXPECT_EQ(module.Send("QP Interface", "Startup "), ResultCode::kSuccess);
  EXPECT_EQ(module.Send("VX Script Message Caller", "anything"), ResultCode::kSuccess);
  EXPECT_EQ(handled.back(), "script anything");
  EXPECT_TRUE(person.alerts.empty());
}

TEST_F(DispatchTest, APurgeIsAnsweredButStaysSilent) {
  EXPECT_EQ(module.Send("QP Cache", "Plug-in Purge"), ResultCode::kSuccess);
  plan.purges = true;
  EXPECT_EQ(module.Send("QP Cache", "Plug-in Purge"), ResultCode::kPurged);
  EXPECT_TRUE(person.alerts.empty());
}

TEST_F(DispatchTest, ExceptionsBecomeCodes) {
  struct Case {
    std::function<ResultCode()> handler;
    ResultCode code;
  };
  const Case cases[] = {
      {[]() -> ResultCode { throw vx::Error(ResultCode::kParameter); }, ResultCode::kParameter},
      {[]() -> ResultCode { throw std::bad_alloc(); }, ResultCode::kOutOfMemory},
      {[]() -> ResultCode { throw std::runtime_error("x"); }, ResultCode::kCannot},
      {[]() -> ResultCode { throw 7; }, ResultCode::kCannot},
  };
  for (const Case& c : cases) {
    plan.menuGo = c.handler;
    EXPECT_EQ(module.Send("VX Menu", "VX Go"), c.code);
  }
  EXPECT_EQ(person.alerts.size(), 3u) << "the second 'CANT' repeats the first";
  EXPECT_EQ(module.Send("VX Menu", "VX Update"), ResultCode::kSuccess);
}

TEST_F(DispatchTest, NotifiersRunInsideTheApplicationContext) {
  handled.clear();
  size_t openContexts = 0;
  plan.menuGo = [&] { return ResultCode::kSuccess; };
  EXPECT_EQ(module.Notify(kStartedNotifierType), ResultCode::kSuccess);
  EXPECT_EQ(handled, (std::vector<std::string>{"started", "notified"}));
  EXPECT_EQ(Operations().Calls("VX Context Suite/PushAppContext"), 1u);
  EXPECT_EQ(Operations().Calls("VX Context Suite/PopAppContext"), 1u);
  EXPECT_EQ(host.Objects().contexts.Size(), openContexts);

  handled.clear();
  plan.applicationStarted = ResultCode::kParameter;
  EXPECT_EQ(module.Notify(kStartedNotifierType), ResultCode::kParameter);
  plan.applicationStarted = ResultCode::kNotHandled;
  EXPECT_EQ(module.Notify(kStartedNotifierType, "VX Other"), ResultCode::kSuccess);
  EXPECT_EQ(handled, (std::vector<std::string>{"started", "started"}));

  handled.clear();
  EXPECT_EQ(module.Notify("VX Other Notifier"), ResultCode::kSuccess);
  EXPECT_EQ(module.Notify("VX Other Notifier", "VX Other"), ResultCode::kSuccess);
  EXPECT_EQ(handled, std::vector<std::string>{"notified"});
  EXPECT_EQ(host.Objects().contexts.Size(), 0u);
}

}  // namespace
