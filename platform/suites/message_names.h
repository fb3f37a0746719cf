#pragma once

/// The names of the messages that a plug-in can handle. A host passes the two strings of a name to
/// the module's entry point (plugin_message.h).

/// The name of a message: two NUL-terminated ASCII strings, compared byte for byte.
struct MessageName {
  const char* caller;
  const char* selector;
};

namespace messages {

constexpr MessageName kUnload = {"QP Access", "Unload"};
constexpr MessageName kReload = {"QP Access", "Reload"};
constexpr MessageName kStartup = {"QP Interface", "Startup"};
constexpr MessageName kAbout = {"QP Interface", "About"};
constexpr MessageName kShutdown = {"QP Interface", "Shutdown"};
constexpr MessageName kPurge = {"QP Cache", "Plug-in Purge"};
constexpr MessageName kAcquireProperty = {"QP Properties", "Acquire"};
constexpr MessageName kReleaseProperty = {"QP Properties", "Release"};
constexpr MessageName kNotify = {"VX Notifier", "VX Notify"};
constexpr MessageName kDoAction = {"Action Manager", "Do Action"};
constexpr MessageName kMenuGo = {"VX Menu", "VX Go"};
constexpr MessageName kMenuUpdate = {"VX Menu", "VX Update"};
constexpr MessageName kFilterGetParameters = {"VX Filter", "VX Get Parameters"};
constexpr MessageName kFilterGo = {"VX Filter", "VX Go"};
constexpr MessageName kPluginGroupNotifyEdits = {"VX Plugin Group", "VX Notify Edits"};
constexpr MessageName kPluginGroupUpdate = {"VX Plugin Group", "VX Update"};
constexpr MessageName kFileFormatGetParameters = {"VX File Format", "VX Get Parameters"};
constexpr MessageName kFileFormatGo = {"VX File Format", "VX Go"};
constexpr MessageName kFileFormatCheck = {"VX File Format", "VX Check"};
constexpr MessageName kFileFormatUpdate = {"VX File Format", "VX Update VX140"};
constexpr MessageName kFileFormatDoAction = {"VX File Format", "Do Action"};
constexpr MessageName kToolEditOptions = {"VX Tool", "VX Edit Options"};
constexpr MessageName kToolTrackCursor = {"VX Tool", "VX Track Cursor"};
constexpr MessageName kToolMouseDown = {"VX Tool", "VX Mouse Down"};
constexpr MessageName kToolMouseDrag = {"VX Tool", "VX Mouse Drag"};
constexpr MessageName kToolMouseUp = {"VX Tool", "VX Mouse Up"};
constexpr MessageName kToolSelect = {"VX Tool", "VX Select"};
constexpr MessageName kToolDeselect = {"VX Tool", "VX Deselect"};
constexpr MessageName kToolReselect = {"VX Tool", "VX Reselect"};
constexpr MessageName kToolDecreaseDiameter = {"VX Tool", "VX Decrease Diameter"};
constexpr MessageName kToolIncreaseDiameter = {"VX Tool", "VX Increase Diameter"};
constexpr MessageName kLiveEffectEditParameters = {"VX Live Effect",
                                                   "VX Live Effect Edit Parameters"};
constexpr MessageName kLiveEffectGoLive = {"VX Live Effect", "VX Live Effect Go Live"};
constexpr MessageName kLiveEffectInterpolateParameters = {"VX Live Effect",
                                                          "VX Live Effect Interpolate Parameters"};
constexpr MessageName kLiveEffectGetConversionParameters = {
    "VX Live Effect", "VX Live Effect Get Conversion Parameters"};
constexpr MessageName kLiveEffectInputType = {"VX Live Effect", "VX Live Effect Input Type"};
constexpr MessageName kLiveEffectScaleParameters = {"VX Live Effect",
                                                    "VX Live Effect Scale Parameters"};
constexpr MessageName kLiveEffectConvertColorSpace = {"VX Live Effect",
                                                      "VX Live Effect Convert Color Space"};
constexpr MessageName kLiveEffectAdjustColors = {"VX Live Effect", "VX Live Effect Adjust Colors"};
constexpr MessageName kLiveEffectHandleMerge = {"VX Live Effect", "VX Live Effect Handle Merge"};
constexpr MessageName kLiveEffectIsCompatible = {"VX Live Effect", "VX Live Effect Is Compatible"};
constexpr MessageName kTimerGo = {"VX Timer", "VX Go"};
constexpr MessageName kClipboardGo = {"VX Clipboard", "VX Go"};
constexpr MessageName kClipboardCanCopy = {"VX Clipboard", "VX Can Copy"};
constexpr MessageName kClipboardClone = {"VX Clipboard", "VX Clone"};
constexpr MessageName kClipboardDispose = {"VX Clipboard", "VX Dispose"};
// Hosts use this spelling of "workspace".
constexpr MessageName kWriteWorkspace = {"Workspace Manager", "Write Woskspace"};
constexpr MessageName kRestoreWorkspace = {"Workspace Manager", "Restore Woskspace"};
constexpr MessageName kDefaultWorkspace = {"Workspace Manager", "Default Woskspace"};
constexpr MessageName kControlPanelCreateControlGroup = {"Herder Control Panel",
                                                         "VX Control Panel Create ControlGroup"};
constexpr MessageName kControlPanelGroupVisibility = {"Herder Control Panel",
                                                      "VX Control Panel Group Visibility"};
constexpr MessageName kControlPanelSubGroupVisibility = {"Herder Control Panel",
                                                         "VX Control Panel SubGroup Visibility"};

// A message from "VX Notifier" has a NotifierMessage, whose type identifies the event. Hosts send
// the selector of kNotify; plug-ins accept any selector.
constexpr const char* kNotifierCaller = "VX Notifier";
constexpr const char* kStartedNotifierType = "VX Application Started Notifier";

// The selector of a script message is chosen by the script.
constexpr const char* kScriptCaller = "VX Script Message Caller";

}  // namespace messages
