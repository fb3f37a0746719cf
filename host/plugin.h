#pragma once

#include <cstddef>
#include <cstdint>

#include "host/suite_set.h"
#include "platform/suites/plugin_message.h"
#include "platform/suites/result_code.h"

/// The framework's base class of plug-in objects, with one virtual operation per message that the
/// host can send. PluginMain passes each message to HandleMessage, which calls its operation; a
/// derived class overrides the operations that it needs. The host owns the message record, which is
/// valid during the call. Main thread only.
///
/// The object is allocated in the host's memory and survives an unload of the module, so its
/// members are plain data in a fixed order.
class Plugin {
 public:
  explicit Plugin(PluginRef pluginRef);

  // A new-expression returns null if the host has no memory.
  static void* operator new(size_t size) noexcept;
  static void operator delete(void* plugin) noexcept;

  PluginRef Reference() const { return pluginRef; }
  /// False while unloaded: before the start-up, after an unload or a failed reload, and after
  /// another object's shut-down or unload has released the suites. An unloaded object handles only
  /// a reload or a shut-down.
  bool HoldsSuites() const { return suites && suites->HoldsSuites(); }

  /// Releases the suites after a failed start-up. OnStartup has set `suiteAcquireCount` to 1; this
  /// restores `earlierSets`, the count before. If it is not 0, other objects keep the suites.
  void AbandonStartup(uint16_t earlierSets);

  // The order of the virtual operations is that of their slots in the virtual table.

  virtual ~Plugin() = default;

  /// Shows the user the code of a failed message, unless it is silent or was the last code shown,
  /// less than `errorRepeatInterval` seconds ago.
  virtual void ReportFailure(ResultCode code, const char* caller, const char* selector,
                             PluginMessage* message) noexcept;

  /// Counts locks: the host keeps the plug-in loaded from the first lock to the last unlock. An
  /// unlock without a lock is ignored. The suites must be held. Returns kSuccess.
  virtual ResultCode SetLocked(bool lock);

  /// Makes this the current plug-in, acquires the suites, and registers name and notifier with the
  /// host. After a failure a derived class restores the previous current plug-in, and PluginMain
  /// calls AbandonStartup.
  virtual ResultCode OnStartup(PluginMessage* message);
  virtual ResultCode OnApplicationStarted() { return ResultCode::kSuccess; }
  /// Releases the suites; no plug-in is current afterwards.
  virtual ResultCode OnShutdown(PluginMessage* message);
  /// Releases the suites. Only a reload or a shut-down may follow.
  virtual ResultCode OnUnload(PluginMessage* message);
  /// Acquires the suites again. RebindAfterReload must have been called before.
  virtual ResultCode OnReload(PluginMessage* message);
  virtual ResultCode OnAcquireProperty(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnReleaseProperty(PluginMessage*) { return ResultCode::kNotHandled; }

  /// Copies the name into `buffer` of `size` bytes, at least 1, truncated if necessary and always
  /// terminated. Returns the full length of the name.
  virtual int32_t CopyName(char* buffer, size_t size);
  /// Shows the host's about box. The suites must be held.
  virtual ResultCode OnAbout(PluginMessage* message);
  /// Frees memory whose content can be recreated. Returns whether it freed any.
  virtual bool OnPurge() { return false; }

  /// Calls the operation for a message and returns its result, or kNotHandled if there is none. A
  /// std::exception becomes its code; other exceptions propagate.
  virtual ResultCode HandleMessage(const char* caller, const char* selector,
                                   PluginMessage* message);

  /// Called when a plug-in becomes the current one; null when none is.
  virtual ResultCode SetCurrentPlugin(Plugin*) { return ResultCode::kSuccess; }
  /// An additional step of the start-up, which ends with the code of a failure.
  virtual ResultCode ContinueStartup() { return ResultCode::kSuccess; }
  /// The last step of a start-up or reload. The result is ignored.
  virtual ResultCode FinishStartup() { return ResultCode::kSuccess; }
  /// The first step of an unload. The result is ignored.
  virtual ResultCode PrepareUnload(PluginMessage*) { return ResultCode::kSuccess; }
  /// Acquires the optional suites that are still missing. Called before each message is handled.
  /// Returns kSuccess.
  virtual ResultCode AcquireOptionalSuites();

  virtual ResultCode OnNotify(PluginMessage*) { return ResultCode::kSuccess; }
  virtual ResultCode OnDoAction(PluginMessage*) { return ResultCode::kSuccess; }
  virtual ResultCode OnMenuGo(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnMenuUpdate(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnFilterGetParameters(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnFilterGo(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnPluginGroupNotifyEdits(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnPluginGroupUpdate(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnFileFormatGetParameters(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnFileFormatGo(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnFileFormatCheck(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnFileFormatUpdate(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnFileFormatDoAction(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnToolEditOptions(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnToolTrackCursor(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnToolMouseDown(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnToolMouseDrag(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnToolMouseUp(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnToolSelect(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnToolDeselect(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnToolReselect(PluginMessage*) { return ResultCode::kSuccess; }
  virtual ResultCode OnToolDecreaseDiameter(PluginMessage*) { return ResultCode::kSuccess; }
  virtual ResultCode OnToolIncreaseDiameter(PluginMessage*) { return ResultCode::kSuccess; }
  virtual ResultCode OnLiveEffectEditParameters(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnLiveEffectGoLive(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnLiveEffectInterpolateParameters(PluginMessage*) {
    return ResultCode::kNotHandled;
  }
  virtual ResultCode OnLiveEffectGetConversionParameters(PluginMessage*) {
    return ResultCode::kNotHandled;
  }
  virtual ResultCode OnLiveEffectInputType(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnLiveEffectConvertColorSpace(PluginMessage*) {
    return ResultCode::kNotHandled;
  }
  virtual ResultCode OnLiveEffectScaleParameters(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnLiveEffectAdjustColors(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnLiveEffectHandleMerge(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnLiveEffectIsCompatible(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnTimerGo(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnClipboardGo(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnClipboardCanCopy(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnClipboardClone(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnClipboardDispose(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnWriteWorkspace(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnRestoreWorkspace(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnDefaultWorkspace(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnControlPanelCreateControlGroup(PluginMessage*) {
    return ResultCode::kNotHandled;
  }
  virtual ResultCode OnControlPanelGroupVisibility(PluginMessage*) {
    return ResultCode::kNotHandled;
  }
  virtual ResultCode OnControlPanelSubGroupVisibility(PluginMessage*) {
    return ResultCode::kNotHandled;
  }
  /// `selector` may be null.
  virtual ResultCode OnScriptMessage(const char* /*selector*/, PluginMessage*) {
    return ResultCode::kSuccess;
  }

 protected:
  // Only for RebindAfterReload.
  Plugin(const Plugin&) = default;
  Plugin& operator=(const Plugin&) = delete;

  PluginRef pluginRef;
  char name[256] = {};
  SuiteSet* suites = nullptr;  // owned; null before a start-up, after an unload or a failed reload
  int32_t lockCount = 0;
  AccessHandle accessHandle = nullptr;
  ResultCode lastError = ResultCode::kSuccess;  // the code that ReportFailure showed last
  int32_t errorRepeatInterval = 5;              // seconds
  bool addStartedNotifier = true;
  bool suppressRepeatedErrors = true;
  int64_t lastErrorTime = 0;  // when it showed lastError, in seconds since the epoch

 private:
  ResultCode AcquireSuites();
  void ReleaseSuites();
  ResultCode RegisterWithHost(PluginMessage* message);
};

static_assert(sizeof(Plugin) == 320);

// Each plug-in defines these two functions and its list of suites (suite_set.h).

/// Creates the plug-in object; null if the host has no memory. PluginMain owns it.
Plugin* CreatePlugin(PluginRef pluginRef);

/// Binds an object that was created before an unload to the virtual operations of the code that is
/// loaded now. Its members are unchanged. Returns the object, at the same address.
Plugin* RebindAfterReload(Plugin* kept);
