#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/suites/plugin_message.h"
#include "platform/suites/result_code.h"

/// The host's suites: tables of functions that the host implements and plug-ins call. Each has a
/// name and a version. An operation is identified by its position in the table, so slots that the
/// module does not use remain as gaps, which may be null.
///
/// Unless stated otherwise, for every operation: It is called on the host's main thread. It returns
/// kSuccess, or a code of the host's choice that gives the reason, and then writes nothing through
/// its pointers. A host written in C++ may throw instead; the module guards every call. Strings are
/// NUL-terminated ASCII and valid for the call; the host copies those that it keeps. The caller
/// owns a handle that an operation writes until it releases it; the host owns the object behind it.
/// In C++14 the constants kName and kVersion have no address: pass them by value.

class SheetFactory;
class DrawingSupplierSource;

using UnusedSlot = void (*)();
constexpr size_t kSlot = sizeof(UnusedSlot);
using AccessHandle = struct OpaqueAccess*;
using ContextHandle = struct OpaqueContext*;
using NotifierHandle = struct OpaqueNotifier*;
using StringHandle = struct OpaqueString*;
using SuiteHandle = struct OpaqueSuite*;

/// Hands out all other suites; its address comes with every message.
struct QPBasicSuite {
  /// Writes the address of the table with this name and version to `*suite` and counts one more
  /// user. The table belongs to the host or to a plug-in and keeps its address until the release.
  /// Fails for a name or version that is not published; only an equal version matches.
  ResultCode (*Acquire)(const char* name, int32_t version, const void** suite);
  /// Counts one user less; this user must not use the table afterwards. Fails for a suite that is
  /// not held. The module considers the suite released even after a failure, but stops what it was
  /// doing, so suites that it would have released next stay held.
  ResultCode (*Release)(const char* name, int32_t version);
};

/// Keeps the plug-in in the process while something needs it.
struct QPAccessSuite {
  static constexpr const char* kName = "QP Access Suite";
  static constexpr int32_t kVersion = 3;

  /// Writes a handle to `*access`; the plug-in's code stays in memory until it is released. The
  /// result is ignored.
  ResultCode (*AcquirePlugin)(PluginRef plugin, AccessHandle* access);
  /// Releases the handle; null if AcquirePlugin wrote none. The result is ignored.
  ResultCode (*ReleasePlugin)(AccessHandle access);
};

struct QPPluginsSuite {
  static constexpr const char* kName = "QP Plug-ins Suite";
  static constexpr int32_t kVersion = 4;

  UnusedSlot unused0[23];
  /// Sets the name, up to 255 characters, under which the host shows the plug-in. A failure ends
  /// the plug-in's start-up with its code.
  ResultCode (*SetPluginName)(PluginRef plugin, const char* name);
};

struct VXNotifierSuite {
  static constexpr const char* kName = "VX Notifier Suite";
  static constexpr int32_t kVersion = 1003;

  /// From now until the plug-in's shut-down the host sends messages of caller "VX Notifier" when an
  /// event of `type` occurs. `name`, up to 255 characters, identifies the notifier in diagnostics.
  /// `notifier` receives a handle, which is never released; it may be null. A failure ends the
  /// plug-in's start-up with its code.
  ResultCode (*AddNotifier)(PluginRef plugin, const char* name, const char* type,
                            NotifierHandle* notifier);
};

/// A context names the plug-in on whose behalf the host works. Push and Pop come in pairs.
struct VXContextSuite {
  static constexpr const char* kName = "VX Context Suite";
  static constexpr int32_t kVersion = 1006;

  UnusedSlot unused0[1];
  /// Opens a context for the plug-in. `*context` is null before the call. Contexts are closed in
  /// reverse order. The result is ignored.
  ResultCode (*PushAppContext)(PluginRef plugin, ContextHandle* context);
  /// Closes the context; null if the Push wrote none. The result is ignored.
  ResultCode (*PopAppContext)(ContextHandle context);
};

struct KDMBasicSuite {
  static constexpr const char* kName = "KDM Basic Suite";
  static constexpr int32_t kVersion = 12;

  /// Copies entry `index`, from 1, of the string list `list` of a module into the caller's
  /// `buffer`: UTF-8, cut to `size` bytes (at least 1) and always terminated. Fails when there is
  /// no such entry, which marks the end of a list; the buffer is then untouched. The module reads
  /// no entry beyond 32766.
  ResultCode (*GetListString)(ModuleRef module, int32_t list, int32_t index, char* buffer,
                              size_t size);
  UnusedSlot unused1[19];
  /// Shows the host's about box with two texts in UTF-8, which may be empty, and returns when it is
  /// closed. The result is ignored.
  ResultCode (*ShowAboutBox)(PluginRef plugin, const char* firstText, const char* secondText);
};

/// Blocks that outlive an unload of the plug-in.
struct QPBlocksSuite {
  static constexpr const char* kName = "QP Blocks Suite";
  static constexpr int32_t kVersion = 2;

  /// Allocates `size` bytes, at least 1 (this module asks for 8). `debugName`, never null, names
  /// the block in the host's diagnostics. `*block` is null before the call; afterwards it is
  /// aligned for any type and belongs to the caller until FreeBlock. A null `*block` means that
  /// there was no memory, whatever the result.
  ResultCode (*AllocateBlock)(size_t size, const char* debugName, void** block);
  /// Releases the block, which is never null. The plug-in's shut-down returns the code of a
  /// failure.
  ResultCode (*FreeBlock)(void* block);
};

/// The registry of the suites that plug-ins publish.
struct QPSuitesSuite {
  static constexpr const char* kName = "QP Suites Suite";
  static constexpr int32_t kVersion = 2;

  UnusedSlot unused0[2];
  /// Publishes the table `functions` under `name` and `apiVersion`, by which callers acquire it;
  /// `internalVersion` distinguishes builds of one version. The plug-in owns the table, which keeps
  /// its address until the plug-in's shut-down, through unloads and reloads; a reload changes its
  /// entries. The host removes the suite at the shut-down. A null `list`, which the module passes,
  /// means the host's own. `*suite` receives a handle, which is never released. A failure ends the
  /// plug-in's start-up with its code, an exception with kParameter.
  ResultCode (*AddSuite)(void* list, PluginRef plugin, const char* name, int32_t apiVersion,
                         int32_t internalVersion, const void* functions, SuiteHandle* suite);
};

/// The host's arithmetic, so that plug-ins get exactly its results.
struct VXRealMathSuite {
  static constexpr const char* kName = "VX Real Math Suite";
  static constexpr int32_t kVersion = 1002;

  UnusedSlot unused0[1];
  /// Any operands, in single precision. NaN when the host refuses.
  float (*Multiply)(float a, float b);
  float (*Divide)(float dividend, float divisor);
};

/// The host's string objects. The holder of a handle owns the string; null is the empty string.
struct VXUnicodeStringSuite {
  static constexpr const char* kName = "VX Unicode String Suite";
  static constexpr int32_t kVersion = 1007;

  /// Makes a string of `length` bytes of `text`, which need not be terminated and is copied, in
  /// `encoding`; 0, the host's default, is UTF-8 and the only one that the module uses. Writes the
  /// new handle to `*string`, which is null before the call and after a failure.
  ResultCode (*CreateFromText)(StringHandle* string, const char* text, size_t length,
                               int32_t encoding);
  UnusedSlot unused1[2];
  /// Destroys the string and sets the handle to null. The result is ignored.
  ResultCode (*Dispose)(StringHandle* string);
};

struct VXUserSuite {
  static constexpr const char* kName = "VX User Suite";
  static constexpr int32_t kVersion = 1011;

  UnusedSlot unused0[43];
  /// Shows the host's error alert and returns when it is closed. `text` is the address of the
  /// string's handle; the caller keeps the string. The result is ignored.
  ResultCode (*ShowErrorAlert)(const StringHandle* text);
};

struct GlossaHostInitSuite {
  static constexpr const char* kName = "Glossa Host Init Suite";
  static constexpr int32_t kVersion = 1;

  /// Returns the module, for GetListString, whose list 257 holds the host's texts for error numbers
  /// 10 to 899; null for none. It belongs to the host.
  ModuleRef (*GetHostModule)();
};

/// Gives access to the host's user-interface objects: C++ objects of its toolkit, owned by the
/// host. A host without them fails or writes null. Without a factory the module's dialog returns
/// kCannot; without a supplier source it opens with a null drawing supplier.
struct VXUserInterfaceMainSuite {
  static constexpr const char* kName = "VX User Interface Main Suite";
  static constexpr int32_t kVersion = 1001;

  /// Both write an address or leave `*out` null; the caller sets it to null first. The result is
  /// ignored.
  ResultCode (*GetSheetFactory)(SheetFactory** out);
  ResultCode (*GetDrawingSupplierSource)(DrawingSupplierSource** out);
};

static_assert(offsetof(QPBasicSuite, Acquire) == 0 * kSlot, "");
static_assert(offsetof(QPBasicSuite, Release) == 1 * kSlot, "");
static_assert(offsetof(QPAccessSuite, AcquirePlugin) == 0 * kSlot, "");
static_assert(offsetof(QPAccessSuite, ReleasePlugin) == 1 * kSlot, "");
static_assert(offsetof(QPPluginsSuite, SetPluginName) == 23 * kSlot, "");
static_assert(offsetof(VXNotifierSuite, AddNotifier) == 0 * kSlot, "");
static_assert(offsetof(VXContextSuite, PushAppContext) == 1 * kSlot, "");
static_assert(offsetof(VXContextSuite, PopAppContext) == 2 * kSlot, "");
static_assert(offsetof(KDMBasicSuite, GetListString) == 0 * kSlot, "");
static_assert(offsetof(KDMBasicSuite, ShowAboutBox) == 20 * kSlot, "");
static_assert(offsetof(QPBlocksSuite, AllocateBlock) == 0 * kSlot, "");
static_assert(offsetof(QPBlocksSuite, FreeBlock) == 1 * kSlot, "");
static_assert(offsetof(QPSuitesSuite, AddSuite) == 2 * kSlot, "");
static_assert(offsetof(VXRealMathSuite, Multiply) == 1 * kSlot, "");
static_assert(offsetof(VXRealMathSuite, Divide) == 2 * kSlot, "");
static_assert(offsetof(VXUnicodeStringSuite, CreateFromText) == 0 * kSlot, "");
static_assert(offsetof(VXUnicodeStringSuite, Dispose) == 3 * kSlot, "");
static_assert(offsetof(VXUserSuite, ShowErrorAlert) == 43 * kSlot, "");
static_assert(offsetof(GlossaHostInitSuite, GetHostModule) == 0 * kSlot, "");
static_assert(offsetof(VXUserInterfaceMainSuite, GetSheetFactory) == 0 * kSlot, "");
static_assert(offsetof(VXUserInterfaceMainSuite, GetDrawingSupplierSource) == 1 * kSlot, "");
