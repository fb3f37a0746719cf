#pragma once

#include <cstddef>
#include <cstdint>

#include "host/suite_set.h"
#include "platform/suites/plugin_message.h"
#include "platform/suites/result_code.h"

/// The framework's plug-in object: one virtual operation for each message that the host can send.
/// The host's messages reach it through PluginMain and HandleMessage; a derived class overrides
/// what it answers. Messages are the host's and valid for the length of the call only.
///
/// The object lives in the host's memory and survives an unload of the module, so its members
/// hold nothing but plain data, and their order is fixed.
class Plugin {
 public:
  explicit Plugin(PluginRef pluginRef);

  // Creation answers null instead of throwing when the host has no memory.
  static void* operator new(size_t size) noexcept;
  static void operator delete(void* plugin) noexcept;

  PluginRef Reference() const { return pluginRef; }
  /// False while unloaded: before the first start-up, after an unload and after a reload that
  /// failed, and once the shut-down or unload of another object has released the suites.
  bool HoldsSuites() const { return suites && suites->HoldsSuites(); }

  /// Gives back the suites of a start-up that failed. OnStartup has set the count of suite sets to
  /// 1; this sets it to the `earlierSets` of other objects, for which the suites stay held.
  void AbandonStartup(uint16_t earlierSets);

  // The virtual operations stand in the order of their slots.

  virtual ~Plugin() = default;

  /// Shows the user the code of a message that failed, unless it is silent or was shown less than
  /// `errorRepeatInterval` seconds ago.
  virtual void ReportFailure(ResultCode code, const char* caller, const char* selector,
                             PluginMessage* message) noexcept;

  /// Counts locks; the plug-in stays loaded from the first lock to the last unlock. An unlock too
  /// many is ignored. The suites must be held. Always kSuccess.
  virtual ResultCode SetLocked(bool lock);

  /// Makes this the current plug-in, acquires the suites and introduces the plug-in to the host.
  /// After a failure a derived class makes the plug-in current that was so before, and
  /// AbandonStartup gives the suites back.
  virtual ResultCode OnStartup(PluginMessage* message);
  virtual ResultCode OnApplicationStarted() { return ResultCode::kSuccess; }
  virtual ResultCode OnShutdown(PluginMessage* message);
  /// Lets the suites go; only a reload or a shut-down may follow.
  virtual ResultCode OnUnload(PluginMessage* message);
  /// Acquires the suites again. The object must have been bound to the reloaded code before.
  virtual ResultCode OnReload(PluginMessage* message);
  virtual ResultCode OnAcquireProperty(PluginMessage*) { return ResultCode::kNotHandled; }
  virtual ResultCode OnReleaseProperty(PluginMessage*) { return ResultCode::kNotHandled; }

  /// Copies the name into `size` bytes, cut and terminated; answers the name's full length.
  virtual int32_t CopyName(char* buffer, size_t size);
  /// Shows the host's about box. The suites must be held.
  virtual ResultCode OnAbout(PluginMessage* message);
  /// Frees what can be made anew; true when something was freed.
  virtual bool OnPurge() { return false; }

  /// Turns a message into a call of the operation that answers it. kNotHandled when none does;
  /// a std::exception becomes its code, any other exception passes.
  virtual ResultCode HandleMessage(const char* caller, const char* selector,
                                   PluginMessage* message);

  virtual ResultCode SetCurrentPlugin(Plugin*) { return ResultCode::kSuccess; }
  /// A step of a derived class at the end of the start-up; a failure ends the start-up.
  virtual ResultCode ContinueStartup() { return ResultCode::kSuccess; }
  /// Runs at the end of a start-up and of a reload; the answer is not used.
  virtual ResultCode FinishStartup() { return ResultCode::kSuccess; }
  /// Runs before an unload; the answer is not used.
  virtual ResultCode PrepareUnload(PluginMessage*) { return ResultCode::kSuccess; }
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
  /// `selector` is null when the host named none.
  virtual ResultCode OnScriptMessage(const char* /*selector*/, PluginMessage*) {
    return ResultCode::kSuccess;
  }

 protected:
  // Only to carry the members over to the reloaded code.
  Plugin(const Plugin&) = default;
  Plugin& operator=(const Plugin&) = delete;

  PluginRef pluginRef;
  char name[256] = {};
  SuiteSet* suites = nullptr;  // owned; null unless a start-up or reload has acquired the suites
  int32_t lockCount = 0;
  AccessHandle accessHandle = nullptr;
  ResultCode lastError = ResultCode::kSuccess;  // the last code that was shown, at lastErrorTime
  int32_t errorRepeatInterval = 5;              // seconds
  bool addStartedNotifier = true;
  bool suppressRepeatedErrors = true;
  int64_t lastErrorTime = 0;  // seconds since the epoch

 private:
  ResultCode AcquireSuites();
  void ReleaseSuites();
  ResultCode Introduce(PluginMessage* message);
};

static_assert(sizeof(Plugin) == 320);

// What a plug-in built on this framework supplies, besides its list of suites (suite_set.h).

/// Creates the module's plug-in object in the host's memory; null when there is none.
Plugin* CreatePlugin(PluginRef pluginRef);

/// Makes the virtual operations of an object that was kept across an unload those of this, newly
/// loaded code again, without changing its members. Answers the object, at the same address.
Plugin* RebindAfterReload(void* kept);
