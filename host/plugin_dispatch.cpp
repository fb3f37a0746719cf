#include <algorithm>
#include <boost/core/noncopyable.hpp>
#include <exception>
#include <iterator>
#include <string_view>

#include "host/error.h"
#include "host/plugin.h"
#include "host/suite_access.h"

namespace {

/// The host works on behalf of this plug-in for as long as the scope is open. Without the host's
/// context suite the scope does nothing; what the host answers is not looked at.
class AppContextScope : boost::noncopyable {
 public:
  explicit AppContextScope(PluginRef plugin) {
    if (const auto* contexts = Suite<VXContextSuite>()) {
      (void)contexts->PushAppContext(plugin, &context);
    }
  }
  ~AppContextScope() {
    if (const auto* contexts = Suite<VXContextSuite>()) {
      (void)Guarded([&] { return contexts->PopAppContext(context); });
    }
  }

 private:
  ContextHandle context = nullptr;
};

/// A null name counts as an empty one.
std::string_view AsName(const char* text) {
  return text ? text : "";
}

/// Hands a message on to the operation of a row.
using Handler = ResultCode (*)(Plugin& plugin, const char* selector, PluginMessage* message);

template <ResultCode (Plugin::*kOperation)(PluginMessage*)>
ResultCode Call(Plugin& plugin, const char*, PluginMessage* message) {
  return (plugin.*kOperation)(message);
}

ResultCode AnswerSuccess(Plugin&, const char*, PluginMessage*) {
  return ResultCode::kSuccess;
}

ResultCode Purge(Plugin& plugin, const char*, PluginMessage*) {
  return plugin.OnPurge() ? ResultCode::kPurged : ResultCode::kSuccess;
}

ResultCode Notify(Plugin& plugin, const char* selector, PluginMessage* message) {
  const AppContextScope context(message->pluginRef);
  ResultCode code = ResultCode::kNotHandled;
  if (AsName(static_cast<NotifierMessage*>(message)->notifierType) == kStartedNotifierType) {
    code = plugin.OnApplicationStarted();
    if (Failed(code) && code != ResultCode::kNotHandled) return code;
  }
  return AsName(selector) == "VX Notify" ? plugin.OnNotify(message) : code;
}

ResultCode PassScript(Plugin& plugin, const char* selector, PluginMessage* message) {
  return plugin.OnScriptMessage(selector, message);
}

struct Route {
  std::string_view caller;
  std::string_view selector;
  Handler handler;
};

constexpr std::string_view kAnySelector;  // told by its data(), which is null for no other

// A row for each message that a plug-in can answer, in the order in which callers are tested.
constexpr Route kRoutes[] = {
    {"QP Access", "Unload", Call<&Plugin::OnUnload>},
    {"QP Interface", "About", Call<&Plugin::OnAbout>},
    {"QP Interface", "Startup", AnswerSuccess},
    {"QP Cache", "Plug-in Purge", Purge},
    {"QP Properties", "Acquire", Call<&Plugin::OnAcquireProperty>},
    {"QP Properties", "Release", Call<&Plugin::OnReleaseProperty>},
    {"VX Notifier", kAnySelector, Notify},
    {"Action Manager", "Do Action", Call<&Plugin::OnDoAction>},
    {"VX Menu", "VX Go", Call<&Plugin::OnMenuGo>},
    {"VX Menu", "VX Update", Call<&Plugin::OnMenuUpdate>},
    {"VX Filter", "VX Get Parameters", Call<&Plugin::OnFilterGetParameters>},
    {"VX Filter", "VX Go", Call<&Plugin::OnFilterGo>},
    {"VX Plugin Group", "VX Notify Edits", Call<&Plugin::OnPluginGroupNotifyEdits>},
    {"VX Plugin Group", "VX Update", Call<&Plugin::OnPluginGroupUpdate>},
    {"VX File Format", "VX Get Parameters", Call<&Plugin::OnFileFormatGetParameters>},
    {"VX File Format", "VX Go", Call<&Plugin::OnFileFormatGo>},
    {"VX File Format", "VX Check", Call<&Plugin::OnFileFormatCheck>},
    {"VX File Format", "VX Update VX140", Call<&Plugin::OnFileFormatUpdate>},
    {"VX File Format", "Do Action", Call<&Plugin::OnFileFormatDoAction>},
    {"VX Tool", "VX Edit Options", Call<&Plugin::OnToolEditOptions>},
    {"VX Tool", "VX Track Cursor", Call<&Plugin::OnToolTrackCursor>},
    {"VX Tool", "VX Mouse Down", Call<&Plugin::OnToolMouseDown>},
    {"VX Tool", "VX Mouse Drag", Call<&Plugin::OnToolMouseDrag>},
    {"VX Tool", "VX Mouse Up", Call<&Plugin::OnToolMouseUp>},
    {"VX Tool", "VX Select", Call<&Plugin::OnToolSelect>},
    {"VX Tool", "VX Deselect", Call<&Plugin::OnToolDeselect>},
    {"VX Tool", "VX Reselect", Call<&Plugin::OnToolReselect>},
    {"VX Tool", "VX Decrease Diameter", Call<&Plugin::OnToolDecreaseDiameter>},
    {"VX Tool", "VX Increase Diameter", Call<&Plugin::OnToolIncreaseDiameter>},
    {"VX Live Effect", "VX Live Effect Edit Parameters", Call<&Plugin::OnLiveEffectEditParameters>},
    {"VX Live Effect", "VX Live Effect Go Live", Call<&Plugin::OnLiveEffectGoLive>},
    {"VX Live Effect", "VX Live Effect Interpolate Parameters",
     Call<&Plugin::OnLiveEffectInterpolateParameters>},
    {"VX Live Effect", "VX Live Effect Get Conversion Parameters",
     Call<&Plugin::OnLiveEffectGetConversionParameters>},
    {"VX Live Effect", "VX Live Effect Input Type", Call<&Plugin::OnLiveEffectInputType>},
    {"VX Live Effect", "VX Live Effect Scale Parameters",
     Call<&Plugin::OnLiveEffectScaleParameters>},
    {"VX Live Effect", "VX Live Effect Convert Color Space",
     Call<&Plugin::OnLiveEffectConvertColorSpace>},
    {"VX Live Effect", "VX Live Effect Adjust Colors", Call<&Plugin::OnLiveEffectAdjustColors>},
    {"VX Live Effect", "VX Live Effect Handle Merge", Call<&Plugin::OnLiveEffectHandleMerge>},
    {"VX Live Effect", "VX Live Effect Is Compatible", Call<&Plugin::OnLiveEffectIsCompatible>},
    {"VX Timer", "VX Go", Call<&Plugin::OnTimerGo>},
    {"VX Clipboard", "VX Go", Call<&Plugin::OnClipboardGo>},
    {"VX Clipboard", "VX Can Copy", Call<&Plugin::OnClipboardCanCopy>},
    {"VX Clipboard", "VX Clone", Call<&Plugin::OnClipboardClone>},
    {"VX Clipboard", "VX Dispose", Call<&Plugin::OnClipboardDispose>},
    // The workspace selectors are spelt as the host spells them.
    {"Workspace Manager", "Write Woskspace", Call<&Plugin::OnWriteWorkspace>},
    {"Workspace Manager", "Restore Woskspace", Call<&Plugin::OnRestoreWorkspace>},
    {"Workspace Manager", "Default Woskspace", Call<&Plugin::OnDefaultWorkspace>},
    {"Herder Control Panel", "VX Control Panel Create ControlGroup",
     Call<&Plugin::OnControlPanelCreateControlGroup>},
    {"Herder Control Panel", "VX Control Panel Group Visibility",
     Call<&Plugin::OnControlPanelGroupVisibility>},
    {"Herder Control Panel", "VX Control Panel SubGroup Visibility",
     Call<&Plugin::OnControlPanelSubGroupVisibility>},
    {"VX Script Message Caller", kAnySelector, PassScript},
};

/// The rows of a caller stand together.
const Route* FindRoute(std::string_view caller, std::string_view selector) {
  const Route* route =
      std::find_if(std::begin(kRoutes), std::end(kRoutes),
                   [caller](const Route& candidate) { return candidate.caller == caller; });
  for (; route != std::end(kRoutes) && route->caller == caller; ++route)
    if (route->selector.data() == nullptr || route->selector == selector) return route;
  return nullptr;
}

}  // namespace

ResultCode Plugin::HandleMessage(const char* caller, const char* selector, PluginMessage* message) {
  try {
    (void)AcquireOptionalSuites();
    const Route* route = FindRoute(AsName(caller), AsName(selector));
    return route ? route->handler(*this, selector, message) : ResultCode::kNotHandled;
  } catch (const std::exception&) {
    return CodeOfCurrentException();
  }
}
