#include <algorithm>
#include <boost/core/noncopyable.hpp>
#include <exception>
#include <iterator>
#include <string_view>

#include "host/error.h"
#include "host/plugin.h"
#include "host/suite_access.h"
#include "platform/suites/message_names.h"

namespace {

/// Opens a context in which the host works on behalf of the plug-in, and closes it at the end of
/// the scope. Does nothing without the context suite; the host's results are ignored.
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

/// Treats null as an empty name.
constexpr std::string_view AsName(const char* text) {
  return text ? text : "";
}

/// Calls the operation of a table row.
using Handler = ResultCode (*)(Plugin& plugin, const char* selector, PluginMessage* message);

template <ResultCode (Plugin::*kOperation)(PluginMessage*)>
ResultCode Call(Plugin& plugin, const char*, PluginMessage* message) {
  return (plugin.*kOperation)(message);
}

ResultCode ReturnSuccess(Plugin&, const char*, PluginMessage*) {
  return ResultCode::kSuccess;
}

ResultCode CallOnPurge(Plugin& plugin, const char*, PluginMessage*) {
  return plugin.OnPurge() ? ResultCode::kPurged : ResultCode::kSuccess;
}

ResultCode HandleNotifier(Plugin& plugin, const char* selector, PluginMessage* message) {
  const AppContextScope context(message->pluginRef);
  ResultCode code = ResultCode::kNotHandled;
  if (AsName(static_cast<NotifierMessage*>(message)->notifierType) ==
      messages::kStartedNotifierType) {
    code = plugin.OnApplicationStarted();
    if (Failed(code) && code != ResultCode::kNotHandled) return code;
  }
  return AsName(selector) == messages::kNotify.selector ? plugin.OnNotify(message) : code;
}

ResultCode CallOnScriptMessage(Plugin& plugin, const char* selector, PluginMessage* message) {
  return plugin.OnScriptMessage(selector, message);
}

constexpr const char* kAnySelector = nullptr;

struct Route {
  constexpr Route(const MessageName& name, Handler operation)
      : caller(name.caller), selector(AsName(name.selector)), handler(operation) {}

  std::string_view caller;
  std::string_view selector;  // empty: any
  Handler handler;
};

// One row per message that a plug-in can answer, in the order in which callers are tested.
constexpr Route kRoutes[] = {
    {messages::kUnload, Call<&Plugin::OnUnload>},
    {messages::kAbout, Call<&Plugin::OnAbout>},
    {messages::kStartup, ReturnSuccess},
    {messages::kPurge, CallOnPurge},
    {messages::kAcquireProperty, Call<&Plugin::OnAcquireProperty>},
    {messages::kReleaseProperty, Call<&Plugin::OnReleaseProperty>},
    {{messages::kNotifierCaller, kAnySelector}, HandleNotifier},
    {messages::kDoAction, Call<&Plugin::OnDoAction>},
    {messages::kMenuGo, Call<&Plugin::OnMenuGo>},
    {messages::kMenuUpdate, Call<&Plugin::OnMenuUpdate>},
    {messages::kFilterGetParameters, Call<&Plugin::OnFilterGetParameters>},
    {messages::kFilterGo, Call<&Plugin::OnFilterGo>},
    {messages::kPluginGroupNotifyEdits, Call<&Plugin::OnPluginGroupNotifyEdits>},
    {messages::kPluginGroupUpdate, Call<&Plugin::OnPluginGroupUpdate>},
    {messages::kFileFormatGetParameters, Call<&Plugin::OnFileFormatGetParameters>},
    {messages::kFileFormatGo, Call<&Plugin::OnFileFormatGo>},
    {messages::kFileFormatCheck, Call<&Plugin::OnFileFormatCheck>},
    {messages::kFileFormatUpdate, Call<&Plugin::OnFileFormatUpdate>},
    {messages::kFileFormatDoAction, Call<&Plugin::OnFileFormatDoAction>},
    {messages::kToolEditOptions, Call<&Plugin::OnToolEditOptions>},
    {messages::kToolTrackCursor, Call<&Plugin::OnToolTrackCursor>},
    {messages::kToolMouseDown, Call<&Plugin::OnToolMouseDown>},
    {messages::kToolMouseDrag, Call<&Plugin::OnToolMouseDrag>},
    {messages::kToolMouseUp, Call<&Plugin::OnToolMouseUp>},
    {messages::kToolSelect, Call<&Plugin::OnToolSelect>},
    {messages::kToolDeselect, Call<&Plugin::OnToolDeselect>},
    {messages::kToolReselect, Call<&Plugin::OnToolReselect>},
    {messages::kToolDecreaseDiameter, Call<&Plugin::OnToolDecreaseDiameter>},
    {messages::kToolIncreaseDiameter, Call<&Plugin::OnToolIncreaseDiameter>},
    {messages::kLiveEffectEditParameters, Call<&Plugin::OnLiveEffectEditParameters>},
    {messages::kLiveEffectGoLive, Call<&Plugin::OnLiveEffectGoLive>},
    {messages::kLiveEffectInterpolateParameters, Call<&Plugin::OnLiveEffectInterpolateParameters>},
    {messages::kLiveEffectGetConversionParameters,
     Call<&Plugin::OnLiveEffectGetConversionParameters>},
    {messages::kLiveEffectInputType, Call<&Plugin::OnLiveEffectInputType>},
    {messages::kLiveEffectScaleParameters, Call<&Plugin::OnLiveEffectScaleParameters>},
    {messages::kLiveEffectConvertColorSpace, Call<&Plugin::OnLiveEffectConvertColorSpace>},
    {messages::kLiveEffectAdjustColors, Call<&Plugin::OnLiveEffectAdjustColors>},
    {messages::kLiveEffectHandleMerge, Call<&Plugin::OnLiveEffectHandleMerge>},
    {messages::kLiveEffectIsCompatible, Call<&Plugin::OnLiveEffectIsCompatible>},
    {messages::kTimerGo, Call<&Plugin::OnTimerGo>},
    {messages::kClipboardGo, Call<&Plugin::OnClipboardGo>},
    {messages::kClipboardCanCopy, Call<&Plugin::OnClipboardCanCopy>},
    {messages::kClipboardClone, Call<&Plugin::OnClipboardClone>},
    {messages::kClipboardDispose, Call<&Plugin::OnClipboardDispose>},
    {messages::kWriteWorkspace, Call<&Plugin::OnWriteWorkspace>},
    {messages::kRestoreWorkspace, Call<&Plugin::OnRestoreWorkspace>},
    {messages::kDefaultWorkspace, Call<&Plugin::OnDefaultWorkspace>},
    {messages::kControlPanelCreateControlGroup, Call<&Plugin::OnControlPanelCreateControlGroup>},
    {messages::kControlPanelGroupVisibility, Call<&Plugin::OnControlPanelGroupVisibility>},
    {messages::kControlPanelSubGroupVisibility, Call<&Plugin::OnControlPanelSubGroupVisibility>},
    {{messages::kScriptCaller, kAnySelector}, CallOnScriptMessage},
};

/// Relies on the rows of each caller being adjacent.
const Route* FindRoute(std::string_view caller, std::string_view selector) {
  const Route* route =
      std::find_if(std::begin(kRoutes), std::end(kRoutes),
                   [caller](const Route& candidate) { return candidate.caller == caller; });
  for (; route != std::end(kRoutes) && route->caller == caller; ++route)
    if (route->selector.empty() || route->selector == selector) return route;
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
