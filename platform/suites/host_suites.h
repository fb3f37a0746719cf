#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/suites/plugin_message.h"
#include "platform/suites/result_code.h"

/// The host's suites: tables of functions that the host implements and plug-ins call. Each has a
/// name and a version. An operation is identified by its position in the table. The module does not
/// call the unused slots, which may be null.
///
/// Unless stated otherwise, the following holds for every operation. It is called on the host's
/// main thread. It returns kSuccess, or a code of the host's choice; after a failure it has written
/// nothing through its pointers. A host in C++ may throw instead; the module catches everything.
/// Strings are NUL-terminated ASCII and valid during the call; the host copies those that it keeps.
/// The host owns the object behind a handle; the plug-in owns the handle until it releases it.
/// In C++14 kName and kVersion are declared without a definition: pass them by value.

class SheetFactory;
class DrawingSupplierSource;

using UnusedSlot = void (*)();
constexpr size_t kSlot = sizeof(UnusedSlot);
using AccessHandle = struct OpaqueAccess*;
using ContextHandle = struct OpaqueContext*;
using NotifierHandle = struct OpaqueNotifier*;
using StringHandle = struct OpaqueString*;
using SuiteHandle = struct OpaqueSuite*;

/// Gives access to all other suites. Every message contains its address.
struct QPBasicSuite {
  /// Writes the address of the table with exactly this name and version to `*suite` and increments
  /// the number of its users. The table belongs to the host or to a plug-in and keeps its address
  /// until the release. Fails for a suite that is not published.
  ResultCode (*Acquire)(const char* name, int32_t version, const void** suite);
  /// Decrements the number of users. The caller must not use the table afterwards. Fails for a
  /// suite without users. After a failure the module considers this suite released and does not
  /// release those that would follow.
  ResultCode (*Release)(const char* name, int32_t version);
};

/// Prevents the host from unloading a plug-in.
struct QPAccessSuite {
  static constexpr const char* kName = "QP Access Suite";
  static constexpr int32_t kVersion = 3;

  /// Writes a handle to `*access`. The plug-in's code stays in memory until the handle is released.
  /// The result is ignored.
  ResultCode (*AcquirePlugin)(PluginRef plugin, AccessHandle* access);
  /// Releases the handle, which is null if AcquirePlugin wrote none. The result is ignored.
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

  /// Adds a notifier: until the plug-in's shut-down the host sends a message of caller "VX
  /// Notifier" for each event of `type`. `name`, up to 255 characters, identifies the notifier in
  /// diagnostics.
  /// `*notifier` receives a handle, which is never released; `notifier` may be null. A failure ends
  /// the plug-in's start-up with its code.
  ResultCode (*AddNotifier)(PluginRef plugin, const char* name, const char* type,
                            NotifierHandle* notifier);
};

/// A context states for which plug-in the host works. Each Push is followed by one Pop.
struct VXContextSuite {
  static constexpr const char* kName = "VX Context Suite";
  static constexpr int32_t kVersion = 1006;

  UnusedSlot unused0[1];
  /// Opens a context for the plug-in and writes its handle to `*context`, which is null before the
  /// call. Contexts are closed in reverse order. The result is ignored.
  ResultCode (*PushAppContext)(PluginRef plugin, ContextHandle* context);
  /// Closes the context. The handle is null if the Push wrote none. The result is ignored.
  ResultCode (*PopAppContext)(ContextHandle context);
};

struct KDMBasicSuite {
  static constexpr const char* kName = "KDM Basic Suite";
  static constexpr int32_t kVersion = 12;

  /// Copies entry `index` (1 to 32766) of the module's string list `list` to `buffer`, in UTF-8,
  /// truncated to `size` bytes (at least 1) with the terminator. Fails, without a change of the
  /// buffer, if the entry does not exist; a missing entry ends a list.
  ResultCode (*GetListString)(ModuleRef module, int32_t list, int32_t index, char* buffer,
                              size_t size);
  UnusedSlot unused1[19];
  /// Shows the host's about box with two UTF-8 texts, which may be empty, and returns when it is
  /// closed. The result is ignored.
  ResultCode (*ShowAboutBox)(PluginRef plugin, const char* firstText, const char* secondText);
};

/// Allocates blocks of memory that outlive an unload of the plug-in.
struct QPBlocksSuite {
  static constexpr const char* kName = "QP Blocks Suite";
  static constexpr int32_t kVersion = 2;

  /// Allocates `size` bytes, at least 1 (the module requests 8), aligned for any type, and writes
  /// the block's address to `*block`, which is null before the call. The caller owns the block
  /// until FreeBlock. `debugName`, never null, names the block in diagnostics. The module ignores
  /// the result: a null `*block` is a failure.
  ResultCode (*AllocateBlock)(size_t size, const char* debugName, void** block);
  /// Frees the block, which is never null. A failure ends the plug-in's shut-down with its code.
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
  /// Both compute in single precision, for any operands. A host that cannot returns NaN.
  float (*Multiply)(float a, float b);
  float (*Divide)(float dividend, float divisor);
};

/// The host's string objects. The owner of a handle owns the string; null is the empty string.
struct VXUnicodeStringSuite {
  static constexpr const char* kName = "VX Unicode String Suite";
  static constexpr int32_t kVersion = 1007;

  /// Creates a string from a copy of `length` bytes of `text`, which need not be terminated.
  /// `encoding` 0 is UTF-8; the module uses no other. Writes the handle to `*string`, which is null
  /// before the call and after a failure.
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
  /// Shows the host's error alert and returns when it is closed. `text` points to the handle of a
  /// string, which the caller continues to own. The result is ignored.
  ResultCode (*ShowErrorAlert)(const StringHandle* text);
};

struct GlossaHostInitSuite {
  static constexpr const char* kName = "Glossa Host Init Suite";
  static constexpr int32_t kVersion = 1;

  /// Returns the host's own module, or null. Its string list 257 (see GetListString) contains the
  /// host's texts for the error numbers 10 to 899. The host owns it.
  ModuleRef (*GetHostModule)();
};

/// Gives access to the host's user-interface objects: C++ objects of its toolkit, owned by the
/// host. A host without them fails or writes null. Without a factory the module's dialog ends with
/// kCannot; without a supplier source it opens with a null drawing supplier.
struct VXUserInterfaceMainSuite {
  static constexpr const char* kName = "VX User Interface Main Suite";
  static constexpr int32_t kVersion = 1001;

  /// Both write an address to `*out`, which is null before the call. The result is ignored.
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
