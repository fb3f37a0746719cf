#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/suites/plugin_message.h"
#include "platform/suites/result_code.h"

/// The host's suites: function tables, each under a name and a version. An operation is known by
/// its position, so the slots that the module has no use for are kept as gaps. All strings are
/// NUL-terminated ASCII unless said otherwise; all operations run on the host's main thread. A host
/// written in C++ may throw out of any of them, so the module guards every call.

class SheetFactory;
class DrawingSupplierSource;

using UnusedSlot = void (*)();
inline constexpr size_t kSlot = sizeof(UnusedSlot);
using AccessHandle = struct OpaqueAccess*;
using ContextHandle = struct OpaqueContext*;
using NotifierHandle = struct OpaqueNotifier*;
using StringHandle = struct OpaqueString*;
using SuiteHandle = struct OpaqueSuite*;

/// Hands out all other suites; its address comes with every message.
struct QPBasicSuite {
  /// Writes the table's address to `*suite` and counts one more user; writes nothing on failure.
  ResultCode (*Acquire)(const char* name, int32_t version, const void** suite);
  /// Counts one user less; the table must not be used afterwards.
  ResultCode (*Release)(const char* name, int32_t version);
};

/// Keeps the plug-in in the process while something needs it.
struct QPAccessSuite {
  static constexpr const char* kName = "QP Access Suite";
  static constexpr int32_t kVersion = 3;

  /// The plug-in stays until `*access` is released.
  ResultCode (*AcquirePlugin)(PluginRef plugin, AccessHandle* access);
  ResultCode (*ReleasePlugin)(AccessHandle access);
};

struct QPPluginsSuite {
  static constexpr const char* kName = "QP Plug-ins Suite";
  static constexpr int32_t kVersion = 4;

  UnusedSlot unused0[23];
  /// Tells the host the name under which it shows the plug-in; the host copies it.
  ResultCode (*SetPluginName)(PluginRef plugin, const char* name);
};

struct VXNotifierSuite {
  static constexpr const char* kName = "VX Notifier Suite";
  static constexpr int32_t kVersion = 1003;

  /// Has the host send messages of caller "VX Notifier" when something of `type` happens.
  /// `notifier` receives a handle, or is null when none is wanted.
  ResultCode (*AddNotifier)(PluginRef plugin, const char* name, const char* type,
                            NotifierHandle* notifier);
};

/// A context says on whose behalf the host works; it is opened and closed in pairs.
struct VXContextSuite {
  static constexpr const char* kName = "VX Context Suite";
  static constexpr int32_t kVersion = 1006;

  UnusedSlot unused0[1];
  /// Opens a context for the plug-in; `*context` goes to the Pop that closes it, last first.
  ResultCode (*PushAppContext)(PluginRef plugin, ContextHandle* context);
  ResultCode (*PopAppContext)(ContextHandle context);
};

struct KDMBasicSuite {
  static constexpr const char* kName = "KDM Basic Suite";
  static constexpr int32_t kVersion = 12;

  /// Copies entry `index` (from 1) of a module's string list into `buffer`, cut to its `size` in
  /// bytes and always terminated. Not 0 when there is no such entry; the buffer is then untouched.
  ResultCode (*GetListString)(ModuleRef module, int32_t list, int32_t index, char* buffer,
                              size_t size);
  UnusedSlot unused1[19];
  /// Shows the host's about box with two texts.
  ResultCode (*ShowAboutBox)(PluginRef plugin, const char* firstText, const char* secondText);
};

/// Blocks that outlive an unload of the plug-in.
struct QPBlocksSuite {
  static constexpr const char* kName = "QP Blocks Suite";
  static constexpr int32_t kVersion = 2;

  /// `debugName` says in the host's diagnostics what the block is for. `*block` is aligned for any
  /// type, and the caller's until FreeBlock; on failure it is null or as it was.
  ResultCode (*AllocateBlock)(size_t size, const char* debugName, void** block);
  ResultCode (*FreeBlock)(void* block);
};

/// The registry of the suites that plug-ins publish.
struct QPSuitesSuite {
  static constexpr const char* kName = "QP Suites Suite";
  static constexpr int32_t kVersion = 2;

  UnusedSlot unused0[2];
  /// Publishes `functions`, which stays the plug-in's and must last; `list` null is the host's own.
  ResultCode (*AddSuite)(void* list, PluginRef plugin, const char* name, int32_t apiVersion,
                         int32_t internalVersion, const void* functions, SuiteHandle* suite);
};

/// The host's arithmetic, so that plug-ins get its results to the bit.
struct VXRealMathSuite {
  static constexpr const char* kName = "VX Real Math Suite";
  static constexpr int32_t kVersion = 1002;

  UnusedSlot unused0[1];
  /// In single precision; not a number where the host refuses.
  float (*Multiply)(float a, float b);
  float (*Divide)(float dividend, float divisor);
};

/// The host's string objects. A handle is owned by whoever holds it; null is the empty string.
struct VXUnicodeStringSuite {
  static constexpr const char* kName = "VX Unicode String Suite";
  static constexpr int32_t kVersion = 1007;

  /// Makes a string of `length` bytes of `text` in `encoding` (0 is the host's default).
  ResultCode (*CreateFromText)(StringHandle* string, const char* text, size_t length,
                               int32_t encoding);
  UnusedSlot unused1[2];
  /// Disposes of the string and sets the handle to null.
  ResultCode (*Dispose)(StringHandle* string);
};

struct VXUserSuite {
  static constexpr const char* kName = "VX User Suite";
  static constexpr int32_t kVersion = 1011;

  UnusedSlot unused0[43];
  /// Shows the host's error alert. The string goes by its address, as a string value that owns
  /// its handle does in a call; it stays the caller's.
  ResultCode (*ShowErrorAlert)(const StringHandle* text);
};

struct GlossaHostInitSuite {
  static constexpr const char* kName = "Glossa Host Init Suite";
  static constexpr int32_t kVersion = 1;

  /// The module whose string lists hold the host's own texts; null when there is none.
  ModuleRef (*GetHostModule)();
};

/// The way to the host's user-interface objects, which stay the host's.
struct VXUserInterfaceMainSuite {
  static constexpr const char* kName = "VX User Interface Main Suite";
  static constexpr int32_t kVersion = 1001;

  /// Both write an address or leave `*out` null; the caller sets it to null first.
  ResultCode (*GetSheetFactory)(SheetFactory** out);
  ResultCode (*GetDrawingSupplierSource)(DrawingSupplierSource** out);
};

static_assert(offsetof(QPBasicSuite, Acquire) == 0 * kSlot);
static_assert(offsetof(QPBasicSuite, Release) == 1 * kSlot);
static_assert(offsetof(QPAccessSuite, AcquirePlugin) == 0 * kSlot);
static_assert(offsetof(QPAccessSuite, ReleasePlugin) == 1 * kSlot);
static_assert(offsetof(QPPluginsSuite, SetPluginName) == 23 * kSlot);
static_assert(offsetof(VXNotifierSuite, AddNotifier) == 0 * kSlot);
static_assert(offsetof(VXContextSuite, PushAppContext) == 1 * kSlot);
static_assert(offsetof(VXContextSuite, PopAppContext) == 2 * kSlot);
static_assert(offsetof(KDMBasicSuite, GetListString) == 0 * kSlot);
static_assert(offsetof(KDMBasicSuite, ShowAboutBox) == 20 * kSlot);
static_assert(offsetof(QPBlocksSuite, AllocateBlock) == 0 * kSlot);
static_assert(offsetof(QPBlocksSuite, FreeBlock) == 1 * kSlot);
static_assert(offsetof(QPSuitesSuite, AddSuite) == 2 * kSlot);
static_assert(offsetof(VXRealMathSuite, Multiply) == 1 * kSlot);
static_assert(offsetof(VXRealMathSuite, Divide) == 2 * kSlot);
static_assert(offsetof(VXUnicodeStringSuite, CreateFromText) == 0 * kSlot);
static_assert(offsetof(VXUnicodeStringSuite, Dispose) == 3 * kSlot);
static_assert(offsetof(VXUserSuite, ShowErrorAlert) == 43 * kSlot);
static_assert(offsetof(GlossaHostInitSuite, GetHostModule) == 0 * kSlot);
static_assert(offsetof(VXUserInterfaceMainSuite, GetSheetFactory) == 0 * kSlot);
static_assert(offsetof(VXUserInterfaceMainSuite, GetDrawingSupplierSource) == 1 * kSlot);
