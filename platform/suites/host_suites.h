#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/suites/plugin_message.h"
#include "platform/suites/result_code.h"

/// The host's suites: function tables that the host implements and plug-ins call, each under a name
/// and a version. An operation is known by its position, so the slots that the module has no use
/// for are kept as gaps, which may be null.
///
/// What holds for every operation unless it says otherwise: it is called on the host's main thread.
/// It answers kSuccess, or a code of the host's choice that says why it was not done, and then
/// writes nothing through its pointers. A host written in C++ may throw instead; the module guards
/// every call. Strings are NUL-terminated ASCII, lent for the call: who wants to keep one copies
/// it. A handle that an operation writes is the caller's until the operation that gives it back;
/// what stands behind it is the host's. In C++14 the constants kName and kVersion have no
/// address: pass them by value.

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
  /// Writes the address of the table of that name and version to `*suite` and counts one more user.
  /// The table stays its owner's, the host's or a plug-in's, and must not change its address before
  /// the release. Fails for a name or version that nobody publishes; versions are compared as
  /// equal or not.
  ResultCode (*Acquire)(const char* name, int32_t version, const void** suite);
  /// Counts one user less; this user must not use the table afterwards. Fails for a suite that is
  /// not held. The module takes it for released whatever it answers, but ends what it was doing, so
  /// that suites that it would have released next stay held.
  ResultCode (*Release)(const char* name, int32_t version);
};

/// Keeps the plug-in in the process while something needs it.
struct QPAccessSuite {
  static constexpr const char* kName = "QP Access Suite";
  static constexpr int32_t kVersion = 3;

  /// Writes a handle to `*access`; the plug-in's code stays in memory until it is released. The
  /// answer is not looked at.
  ResultCode (*AcquirePlugin)(PluginRef plugin, AccessHandle* access);
  /// Gives the handle back; null where AcquirePlugin wrote none. The answer is not looked at.
  ResultCode (*ReleasePlugin)(AccessHandle access);
};

struct QPPluginsSuite {
  static constexpr const char* kName = "QP Plug-ins Suite";
  static constexpr int32_t kVersion = 4;

  UnusedSlot unused0[23];
  /// Tells the host the name, up to 255 characters, under which it shows the plug-in; the host
  /// copies it. A failure ends the plug-in's start-up with its code.
  ResultCode (*SetPluginName)(PluginRef plugin, const char* name);
};

struct VXNotifierSuite {
  static constexpr const char* kName = "VX Notifier Suite";
  static constexpr int32_t kVersion = 1003;

  /// Has the host send messages of caller "VX Notifier" when something of `type` happens, until the
  /// plug-in is shut down. The host copies `name`, up to 255 characters, which is the notifier's
  /// own and shown in diagnostics, and `type`. `notifier` receives a handle, which need not be
  /// given back, or is null when none is wanted. A failure ends the plug-in's start-up with its
  /// code.
  ResultCode (*AddNotifier)(PluginRef plugin, const char* name, const char* type,
                            NotifierHandle* notifier);
};

/// A context says on whose behalf the host works; it is opened and closed in pairs.
struct VXContextSuite {
  static constexpr const char* kName = "VX Context Suite";
  static constexpr int32_t kVersion = 1006;

  UnusedSlot unused0[1];
  /// Opens a context for the plug-in; `*context` is null before the call and goes to the Pop that
  /// closes it, last first. The answer is not looked at.
  ResultCode (*PushAppContext)(PluginRef plugin, ContextHandle* context);
  /// Closes it. `context` is null where the Push wrote none. The answer is not looked at.
  ResultCode (*PopAppContext)(ContextHandle context);
};

struct KDMBasicSuite {
  static constexpr const char* kName = "KDM Basic Suite";
  static constexpr int32_t kVersion = 12;

  /// Copies entry `index`, from 1, of the string list `list` of a module into the caller's
  /// `buffer`: UTF-8, cut to `size` bytes (at least 1) and always terminated. Fails when there is
  /// no such entry, which is how lists end; the buffer is then untouched. Of an endless list the
  /// module reads the entries up to 32766.
  ResultCode (*GetListString)(ModuleRef module, int32_t list, int32_t index, char* buffer,
                              size_t size);
  UnusedSlot unused1[19];
  /// Shows the host's about box with two texts in UTF-8, which may be empty, and returns when it is
  /// closed. The answer is not looked at.
  ResultCode (*ShowAboutBox)(PluginRef plugin, const char* firstText, const char* secondText);
};

/// Blocks that outlive an unload of the plug-in.
struct QPBlocksSuite {
  static constexpr const char* kName = "QP Blocks Suite";
  static constexpr int32_t kVersion = 2;

  /// Takes `size` bytes, at least 1 (this module asks for 8); `debugName`, never null, says in the
  /// host's diagnostics what for. `*block` is null before the call, afterwards aligned for any type
  /// and the caller's until FreeBlock; where it stays null there was no memory, whatever the
  /// answer.
  ResultCode (*AllocateBlock)(size_t size, const char* debugName, void** block);
  /// Gives the block, never null, back. The code of a failure becomes the answer of the plug-in's
  /// shut-down.
  ResultCode (*FreeBlock)(void* block);
};

/// The registry of the suites that plug-ins publish.
struct QPSuitesSuite {
  static constexpr const char* kName = "QP Suites Suite";
  static constexpr int32_t kVersion = 2;

  UnusedSlot unused0[2];
  /// Publishes the table `functions` under `name` and `apiVersion`, by which callers ask for it;
  /// `internalVersion` tells builds of one version apart. The table stays the plug-in's and keeps
  /// its address from here to the plug-in's shut-down, through unloads and reloads; its entries
  /// change at a reload. The plug-in withdraws nothing: with the shut-down the host forgets the
  /// suite. `list` is null and means the host's own. `*suite` receives a handle, which need not be
  /// given back. A failure ends the plug-in's start-up with its code, an exception with kParameter.
  ResultCode (*AddSuite)(void* list, PluginRef plugin, const char* name, int32_t apiVersion,
                         int32_t internalVersion, const void* functions, SuiteHandle* suite);
};

/// The host's arithmetic, so that plug-ins get its results to the bit.
struct VXRealMathSuite {
  static constexpr const char* kName = "VX Real Math Suite";
  static constexpr int32_t kVersion = 1002;

  UnusedSlot unused0[1];
  /// Any operands, in single precision. Answers the result, or a value that is not a number where
  /// the host refuses.
  float (*Multiply)(float a, float b);
  float (*Divide)(float dividend, float divisor);
};

/// The host's string objects. A handle is owned by whoever holds it; null is the empty string.
struct VXUnicodeStringSuite {
  static constexpr const char* kName = "VX Unicode String Suite";
  static constexpr int32_t kVersion = 1007;

  /// Makes a string of `length` bytes of `text`, which need not be terminated and is copied, in
  /// `encoding`; 0, the host's default, is UTF-8 and the only one that the module uses. Writes the
  /// new handle to `*string`, which is null before the call and after a failure.
  ResultCode (*CreateFromText)(StringHandle* string, const char* text, size_t length,
                               int32_t encoding);
  UnusedSlot unused1[2];
  /// Disposes of the string and sets the handle to null. The answer is not looked at.
  ResultCode (*Dispose)(StringHandle* string);
};

struct VXUserSuite {
  static constexpr const char* kName = "VX User Suite";
  static constexpr int32_t kVersion = 1011;

  UnusedSlot unused0[43];
  /// Shows the host's error alert and returns when it is closed. `text` is the address of the
  /// string's handle; the string stays the caller's. The answer is not looked at.
  ResultCode (*ShowErrorAlert)(const StringHandle* text);
};

struct GlossaHostInitSuite {
  static constexpr const char* kName = "Glossa Host Init Suite";
  static constexpr int32_t kVersion = 1;

  /// Answers the module, for GetListString, whose list 257 holds the host's texts by error number,
  /// 10 to 899; null when there is none. It stays the host's.
  ModuleRef (*GetHostModule)();
};

/// The way to the host's user-interface objects, C++ objects of its toolkit, which stay the host's.
/// A host that has none refuses or leaves null. Without a factory the module's dialog answers
/// kCannot; without a supplier source it does without.
struct VXUserInterfaceMainSuite {
  static constexpr const char* kName = "VX User Interface Main Suite";
  static constexpr int32_t kVersion = 1001;

  /// Both write an address or leave `*out` null; the caller sets it to null first. The answer is
  /// not looked at.
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
