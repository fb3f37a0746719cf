#pragma once

#include <string_view>

/// A message that a plug-in can answer, and the operation that does.
struct KnownMessage {
  const char* caller;
  const char* selector;
  const char* operation;

  bool IsUnload() const { return std::string_view(operation) == "OnUnload"; }
};

/// All of them whose selector counts.
inline constexpr KnownMessage kKnownMessages[] = {
    {"QP Cache", "Plug-in Purge", "OnPurge"},
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
    {"Herder Control Panel", "VX Control Panel Group Visibility", "OnControlPanelGroupVisibility"},
    {"Herder Control Panel", "VX Control Panel SubGroup Visibility",
     "OnControlPanelSubGroupVisibility"},
};
