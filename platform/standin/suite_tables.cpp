#include <algorithm>
#include <cstring>
#include <limits>

#include "platform/nrvcore/file.h"
#include "platform/qpbasic/ledger.h"
#include "platform/standin/host.h"
#include "platform/standin/host_codes.h"
#include "platform/standin/sheet_service.h"

namespace standin {
namespace {

constexpr ResultCode kDone = ResultCode::kSuccess;
constexpr int32_t kDefaultEncoding = 0;

/// Checks the operation in. Does its work unless a fault is injected.
template <OperationName kName, typename Work>
ResultCode Perform(Work work) {
  Host& host = Host::Current();
  const ResultCode refusal = host.Operations().CheckIn<kName>();
  return Failed(refusal) ? refusal : work(host);
}

/// The longest prefix of a UTF-8 text of at most `size` bytes that contains whole characters only.
std::string_view Truncated(const std::string& text, size_t size) {
  size = std::min(size, text.size());
  while (size > 0 && (text[size] & 0xC0) == 0x80) --size;
  return {text.data(), size};
}

ResultCode Acquire(const char* name, int32_t version, const void** suite) {
  return Host::Current().Suites().Acquire(name, version, suite);
}

ResultCode Release(const char* name, int32_t version) {
  return Host::Current().Suites().Release(name, version);
}

ResultCode AcquirePlugin(PluginRef plugin, AccessHandle* access) {
  return Perform<"QP Access Suite/AcquirePlugin">([=](Host& host) {
    if (!access) return kBadArgument;
    if (!host.Objects().IsPlugin(plugin)) return kUnknownPlugin;
    *access = host.Objects().accesses.Add({plugin});
    return kDone;
  });
}

ResultCode ReleasePlugin(AccessHandle access) {
  return Perform<"QP Access Suite/ReleasePlugin">(
      [=](Host& host) { return host.Objects().accesses.Remove(access) ? kDone : kUnknownHandle; });
}

ResultCode SetPluginName(PluginRef plugin, const char* name) {
  return Perform<"QP Plug-ins Suite/SetPluginName">([=](Host& host) {
    if (!name) return kBadArgument;
    if (!host.Objects().IsPlugin(plugin)) return kUnknownPlugin;
    plugin->name = name;
    return kDone;
  });
}

ResultCode AddNotifier(PluginRef plugin, const char* name, const char* type,
                       NotifierHandle* notifier) {
  return Perform<"VX Notifier Suite/AddNotifier">([=](Host& host) {
    if (!name || !type) return kBadArgument;
    if (!host.Objects().IsPlugin(plugin)) return kUnknownPlugin;
    const NotifierHandle added = host.Objects().notifiers.Add({plugin, name, type});
    if (notifier) *notifier = added;
    return kDone;
  });
}

ResultCode PushAppContext(PluginRef plugin, ContextHandle* context) {
  return Perform<"VX Context Suite/PushAppContext">([=](Host& host) {
    if (!context) return kBadArgument;
    if (!host.Objects().IsPlugin(plugin)) return kUnknownPlugin;
    *context = host.Objects().contexts.Add({plugin});
    return kDone;
  });
}

ResultCode PopAppContext(ContextHandle context) {
  return Perform<"VX Context Suite/PopAppContext">([=](Host& host) {
    auto& contexts = host.Objects().contexts;
    if (!contexts.Holds(context)) return kUnknownHandle;
    if (contexts.Objects().back().get() != context) return kContextOrder;
    contexts.Remove(context);
    return kDone;
  });
}

ResultCode GetListString(ModuleRef module, int32_t list, int32_t index, char* buffer, size_t size) {
  return Perform<"KDM Basic Suite/GetListString">([=](Host& host) {
    if (!buffer || size < 1) return kBadArgument;
    if (!host.Objects().IsModule(module)) return kUnknownPlugin;
    const ListOwner owner = module->isHost ? ListOwner::kHost : ListOwner::kPlugin;
    const std::string* entry = nullptr;
    try {
      entry = host.Lists().Find(owner, list, index);
    } catch (const nrvcore::FileError& error) {
      host.AddResourceProblem(error.what());
      return kDamagedList;
    }
    if (!entry) return kNoListEntry;
    const std::string_view text = Truncated(*entry, size - 1);
    std::memcpy(buffer, text.data(), text.size());
    buffer[text.size()] = '\0';
    return kDone;
  });
}

ResultCode ShowAboutBox(PluginRef plugin, const char* firstText, const char* secondText) {
  return Perform<"KDM Basic Suite/ShowAboutBox">([=](Host& host) {
    if (!firstText || !secondText) return kBadArgument;
    if (!host.Objects().IsPlugin(plugin)) return kUnknownPlugin;
    host.Interface().ShowAbout(firstText, secondText);
    return kDone;
  });
}

ResultCode AllocateBlock(size_t size, const char* debugName, void** block) {
  return Perform<"QP Blocks Suite/AllocateBlock">(
      [=](Host&) { return qpbasic::Ledger::Get().Allocate(size, debugName, block); });
}

ResultCode FreeBlock(void* block) {
  return Perform<"QP Blocks Suite/FreeBlock">(
      [=](Host&) { return qpbasic::Ledger::Get().Free(block); });
}

ResultCode AddSuite(void* list, PluginRef plugin, const char* name, int32_t apiVersion,
                    int32_t internalVersion, const void* functions, SuiteHandle* suite) {
  return Perform<"QP Suites Suite/AddSuite">([=](Host& host) {
    // Only the host's own list exists.
    if (list || !name || !functions || !suite) return kBadArgument;
    if (!host.Objects().IsPlugin(plugin)) return kUnknownPlugin;
    const SuiteHandle added =
        host.Suites().Add(name, apiVersion, functions, plugin, internalVersion);
    if (!added) return kSuiteExists;
    *suite = added;
    return kDone;
  });
}

float Multiply(float a, float b) {
  const ResultCode refusal = Host::Current().Operations().CheckIn<"VX Real Math Suite/Multiply">();
  return Failed(refusal) ? std::numeric_limits<float>::quiet_NaN() : a * b;
}

float Divide(float dividend, float divisor) {
  const ResultCode refusal = Host::Current().Operations().CheckIn<"VX Real Math Suite/Divide">();
  return Failed(refusal) ? std::numeric_limits<float>::quiet_NaN() : dividend / divisor;
}

ResultCode CreateFromText(StringHandle* string, const char* text, size_t length, int32_t encoding) {
  return Perform<"VX Unicode String Suite/CreateFromText">([=](Host& host) {
    if (!string || !text) return kBadArgument;
    if (encoding != kDefaultEncoding) return kUnknownEncoding;
    *string = host.Objects().strings.Add({std::string(text, length)});
    return kDone;
  });
}

ResultCode Dispose(StringHandle* string) {
  return Perform<"VX Unicode String Suite/Dispose">([=](Host& host) {
    if (!string) return kBadArgument;
    if (!*string) return kDone;
    if (!host.Objects().strings.Remove(*string)) return kUnknownHandle;
    *string = nullptr;
    return kDone;
  });
}

ResultCode ShowErrorAlert(const StringHandle* text) {
  return Perform<"VX User Suite/ShowErrorAlert">([=](Host& host) {
    if (!text) return kBadArgument;
    if (*text && !host.Objects().strings.Holds(*text)) return kUnknownHandle;
    host.Interface().ShowAlert(*text ? (*text)->text : std::string());
    return kDone;
  });
}

ModuleRef GetHostModule() {
  Host& host = Host::Current();
  const ResultCode refusal = host.Operations().CheckIn<"Glossa Host Init Suite/GetHostModule">();
  return Failed(refusal) ? nullptr : host.HostModule();
}

ResultCode GetSheetFactory(SheetFactory** out) {
  return Perform<"VX User Interface Main Suite/GetSheetFactory">([=](Host& host) {
    if (!out) return kBadArgument;
    *out = &host.Sheets();
    return kDone;
  });
}

ResultCode GetDrawingSupplierSource(DrawingSupplierSource** out) {
  return Perform<"VX User Interface Main Suite/GetDrawingSupplierSource">([=](Host& host) {
    if (!out) return kBadArgument;
    *out = &host.Sheets();
    return kDone;
  });
}

QPBasicSuite basicSuite = {Acquire, Release};
constexpr QPAccessSuite kAccess = {AcquirePlugin, ReleasePlugin};
constexpr QPPluginsSuite kPlugins = {{}, SetPluginName};
constexpr VXNotifierSuite kNotifier = {AddNotifier};
constexpr VXContextSuite kContext = {{}, PushAppContext, PopAppContext};
constexpr KDMBasicSuite kKdmBasic = {GetListString, {}, ShowAboutBox};
constexpr QPBlocksSuite kBlocks = {AllocateBlock, FreeBlock};
constexpr QPSuitesSuite kSuites = {{}, AddSuite};
constexpr VXRealMathSuite kRealMath = {{}, Multiply, Divide};
constexpr VXUnicodeStringSuite kUnicodeString = {CreateFromText, {}, Dispose};
constexpr VXUserSuite kUser = {{}, ShowErrorAlert};
constexpr GlossaHostInitSuite kHostInit = {GetHostModule};
constexpr VXUserInterfaceMainSuite kUserInterface = {GetSheetFactory, GetDrawingSupplierSource};

template <typename... Suites>
void AddAll(SuiteRegistry& registry, const Suites&... tables) {
  (registry.Add(Suites::kName, Suites::kVersion, &tables), ...);
}

}  // namespace

QPBasicSuite* Host::BasicSuite() {
  return &basicSuite;
}

void Host::AddSuites() {
  operations.DeclareAll();
  AddAll(suites, kAccess, kPlugins, kNotifier, kContext, kKdmBasic, kBlocks, kSuites, kRealMath,
         kUnicodeString, kUser, kHostInit, kUserInterface);
}

}  // namespace standin
