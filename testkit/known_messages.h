#pragma once

/// A message that a plug-in can answer, and the operation that does.
struct KnownMessage {
  const char* caller;
  const char* selector;
  const char* operation;
};

/// All of them that come with a message record and whose selector counts.
#define FOR_EACH_KNOWN_MESSAGE(X)                                                                 \
  X("QP Access", "Unload", OnUnload)                                                              \
  X("QP Interface", "About", OnAbout)                                                             \
  X("QP Properties", "Acquire", OnAcquireProperty)                                                \
  X("QP Properties", "Release", OnReleaseProperty)                                                \
  X("Action Manager", "Do Action", OnDoAction)                                                    \
  X("VX Menu", "VX Go", OnMenuGo)                                                                 \
  X("VX Menu", "VX Update", OnMenuUpdate)                                                         \
  X("VX Filter", "VX Get Parameters", OnFilterGetParameters)                                      \
  X("VX Filter", "VX Go", OnFilterGo)                                                             \
  X("VX Plugin Group", "VX Notify Edits", OnPluginGroupNotifyEdits)                               \
  X("VX Plugin Group", "VX Update", OnPluginGroupUpdate)                                          \
  X("VX File Format", "VX Get Parameters", OnFileFormatGetParameters)                             \
  X("VX File Format", "VX Go", OnFileFormatGo)                                                    \
  X("VX File Format", "VX Check", OnFileFormatCheck)                                              \
  X("VX File Format", "VX Update VX140", OnFileFormatUpdate)                                      \
  X("VX File Format", "Do Action", OnFileFormatDoAction)                                          \
  X("VX Tool", "VX Edit Options", OnToolEditOptions)                                              \
  X("VX Tool", "VX Track Cursor", OnToolTrackCursor)                                              \
  X("VX Tool", "VX Mouse Down", OnToolMouseDown)                                                  \
  X("VX Tool", "VX Mouse Drag", OnToolMouseDrag)                                                  \
  X("VX Tool", "VX Mouse Up", OnToolMouseUp)                                                      \
  X("VX Tool", "VX Select", OnToolSelect)                                                         \
  X("VX Tool", "VX Deselect", OnToolDeselect)                                                     \
  X("VX Tool", "VX Reselect", OnToolReselect)                                                     \
  X("VX Tool", "VX Decrease Diameter", OnToolDecreaseDiameter)                                    \
  X("VX Tool", "VX Increase Diameter", OnToolIncreaseDiameter)                                    \
  X("VX Live Effect", "VX Live Effect Edit Parameters", OnLiveEffectEditParameters)               \
  X("VX Live Effect", "VX Live Effect Go Live", OnLiveEffectGoLive)                               \
  X("VX Live Effect", "VX Live Effect Interpolate Parameters", OnLiveEffectInterpolateParameters) \
  X("VX Live Effect", "VX Live Effect Get Conversion Parameters",                                 \
    OnLiveEffectGetConversionParameters)                                                          \
  X("VX Live Effect", "VX Live Effect Input Type", OnLiveEffectInputType)                         \
  X("VX Live Effect", "VX Live Effect Scale Parameters", OnLiveEffectScaleParameters)             \
  X("VX Live Effect", "VX Live Effect Convert Color Space", OnLiveEffectConvertColorSpace)        \
  X("VX Live Effect", "VX Live Effect Adjust Colors", OnLiveEffectAdjustColors)                   \
  X("VX Live Effect", "VX Live Effect Handle Merge", OnLiveEffectHandleMerge)                     \
  X("VX Live Effect", "VX Live Effect Is Compatible", OnLiveEffectIsCompatible)                   \
  X("VX Timer", "VX Go", OnTimerGo)                                                               \
  X("VX Clipboard", "VX Go", OnClipboardGo)                                                       \
  X("VX Clipboard", "VX Can Copy", OnClipboardCanCopy)                                            \
  X("VX Clipboard", "VX Clone", OnClipboardClone)                                                 \
  X("VX Clipboard", "VX Dispose", OnClipboardDispose)                                             \
  X("Workspace Manager", "Write Woskspace", OnWriteWorkspace)                                     \
  X("Workspace Manager", "Restore Woskspace", OnRestoreWorkspace)                                 \
  X("Workspace Manager", "Default Woskspace", OnDefaultWorkspace)                                 \
  X("Herder Control Panel", "VX Control Panel Create ControlGroup",                               \
    OnControlPanelCreateControlGroup)                                                             \
  X("Herder Control Panel", "VX Control Panel Group Visibility", OnControlPanelGroupVisibility)   \
  X("Herder Control Panel", "VX Control Panel SubGroup Visibility",                               \
    OnControlPanelSubGroupVisibility)

#define KNOWN_MESSAGE(caller, selector, operation) {caller, selector, #operation},
inline constexpr KnownMessage kKnownMessages[] = {{"QP Cache", "Plug-in Purge", "OnPurge"},
                                                  FOR_EACH_KNOWN_MESSAGE(KNOWN_MESSAGE)};
#undef KNOWN_MESSAGE
