// A minimal host: host MODULE [PLUG-IN]. It starts, unloads, reloads and shuts down the module with
// simple implementations of the suites, and prints the result of each step. PLUG-IN receives the
// message that its menu entry was chosen. The host has no sheets from which the module could build
// its dialog, so the dialog returns 'CANT'. The exit status is 0 if every step had the expected
// result.

#include <dlfcn.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <string>
#include <utility>

#include "mosaic/mosaic_suite.h"
#include "platform/qpbasic/qpbasic.h"
#include "platform/suites/host_suites.h"
#include "platform/suites/message_names.h"

/// A plug-in and the host's data about it.
struct OpaqueModule {
  std::string file;
  std::string name;
  void* image;
  void* globals;
};

namespace {

constexpr ResultCode kDone = ResultCode::kSuccess;
constexpr ResultCode kNotFound = ResultCode(404);

std::map<std::pair<std::string, int32_t>, const void*> published;
int allocations = 0, blocks = 0, suitesInUse = 0;
bool allPassed = true;

void Expect(bool passed, const char* what) {
  std::printf("%s: %s\n", what, passed ? "yes" : "NO");
  allPassed = allPassed && passed;
}

ResultCode Acquire(const char* name, int32_t version, const void** table) {
  const auto found = published.find({name, version});
  if (found == published.end()) return kNotFound;
  *table = found->second;
  ++suitesInUse;
  return kDone;
}

ResultCode Release(const char*, int32_t) {
  --suitesInUse;
  return kDone;
}

QPBasicSuite basic = {Acquire, Release};

/// Plug-ins only return these handles to the host, so any non-null value will do.
template <typename Handle>
ResultCode WriteHandle(PluginRef, Handle* handle) {
  *handle = reinterpret_cast<Handle>(&basic);
  return kDone;
}

ResultCode SetName(PluginRef plugin, const char* name) {
  plugin->name = name;
  return kDone;
}

// Reads a plug-in's string list from the folder beside its module. A line is an index, a tab and a
// text.
ResultCode GetListString(ModuleRef module, int32_t list, int32_t index, char* buffer, size_t size) {
  const std::string folder = module->file.substr(0, module->file.rfind('/') + 1);
  std::ifstream lines(folder + "strings/" + std::to_string(list) + ".txt");
  const std::string start = std::to_string(index) + '\t';
  for (std::string line; std::getline(lines, line);) {
    if (line.compare(0, start.size(), start) != 0) continue;
    std::snprintf(buffer, size, "%s", line.c_str() + start.size());
    return kDone;
  }
  return kNotFound;
}

ResultCode ShowAbout(PluginRef plugin, const char* first, const char* second) {
  std::printf("about %s: %s - %s\n", plugin->name.c_str(), first, second);
  return kDone;
}

ResultCode AddSuite(void*, PluginRef, const char* name, int32_t version, int32_t, const void* table,
                    SuiteHandle*) {
  published[{name, version}] = table;
  return kDone;
}

const QPAccessSuite access = {WriteHandle, [](AccessHandle) { return kDone; }};
const QPPluginsSuite plugins = {{}, SetName};
const VXNotifierSuite notifiers = {
    [](PluginRef, const char*, const char*, NotifierHandle*) { return kDone; }};
const VXContextSuite contexts = {{}, WriteHandle, [](ContextHandle) { return kDone; }};
const KDMBasicSuite lists = {GetListString, {}, ShowAbout};
const QPBlocksSuite blockSuite = {
    [](size_t size, const char*, void** block) { return QPBasicAllocateBlock(size, block); },
    QPBasicFreeBlock};
const QPSuitesSuite suites = {{}, AddSuite};
const VXRealMathSuite math = {
    {}, [](float a, float b) { return a * b; }, [](float a, float b) { return a / b; }};
// Plug-ins create host strings only for alerts, which this host does not show.
const VXUnicodeStringSuite texts = {
    [](StringHandle*, const char*, size_t, int32_t) { return kNotFound; },
    {},
    [](StringHandle*) { return kDone; }};

template <typename Suite>
void Publish(const Suite& table) {
  (void)AddSuite(nullptr, nullptr, Suite::kName, Suite::kVersion, 1, &table, nullptr);
}

void Load(OpaqueModule& plugin) {
  plugin.image = dlopen(plugin.file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (plugin.image) return;
  std::fprintf(stderr, "host: %s\n", dlerror());
  std::exit(1);
}

ResultCode Send(OpaqueModule& plugin, const MessageName& name) {
  NotifierMessage message = {};
  message.pluginRef = &plugin;
  message.globals = plugin.globals;
  message.basicSuite = &basic;
  message.notifierType = messages::kStartedNotifierType;
  const auto entry = reinterpret_cast<PluginEntryPoint>(dlsym(plugin.image, kPluginEntryName));
  const ResultCode code = entry ? entry(name.caller, name.selector, &message) : kNotFound;
  plugin.globals = message.globals;
  return code;
}

/// Calls the module's suite like any caller. Returns whether the dialog returns 'CANT' and leaves
/// the record unchanged.
bool DialogReturnsCannot() {
  const void* table = nullptr;
  if (Failed(Acquire(MosaicSuite::kName, MosaicSuite::kVersion, &table))) return false;
  MosaicParameters record = {}, *address = &record;
  MosaicDialogState state = {};
  record.boundsRight = record.boundsBottom = 100;
  const MosaicParameters before = record;
  const auto* suite = static_cast<const MosaicSuite*>(table);
  const ResultCode result = suite->RunMosaicDialog(&state, &address);
  (void)Release(MosaicSuite::kName, MosaicSuite::kVersion);
  return result == ResultCode::kCannot && std::memcmp(&record, &before, sizeof record) == 0;
}

}  // namespace

ResultCode QPBasicAllocateBlock(size_t size, void** block) noexcept {
  *block = std::malloc(size ? size : 1);
  if (!*block) return ResultCode::kOutOfMemory;
  ++allocations, ++blocks;
  return kDone;
}

ResultCode QPBasicFreeBlock(void* block) noexcept {
  if (block) --blocks;
  std::free(block);
  return kDone;
}

int main(int argc, char** argv) {
  char path[PATH_MAX];
  if (argc < 2 || !realpath(argv[1], path)) {
    std::fprintf(stderr, "usage: host MODULE [PLUG-IN]\n");
    return 2;
  }
  Publish(access), Publish(plugins), Publish(notifiers), Publish(contexts), Publish(lists);
  Publish(blockSuite), Publish(suites), Publish(math), Publish(texts);

  OpaqueModule module = {path, "", nullptr, nullptr};
  Load(module);
  Expect(!Failed(Send(module, messages::kStartup)), "starts up");
  Expect(!Failed(Send(module, messages::kNotify)),
         "accepts the notification that the host has started");
  Expect(!Failed(Send(module, messages::kAbout)), "shows its about box");
  Expect(DialogReturnsCannot(),
         "publishes a suite, whose dialog returns 'CANT' and changes nothing");
  Expect(!Failed(Send(module, messages::kUnload)) && suitesInUse == 0,
         "holds no suite when unloaded");
  dlclose(module.image);
  Expect(!dlopen(path, RTLD_LAZY | RTLD_NOLOAD), "is unmapped by dlclose");
  Load(module);
  Expect(!Failed(Send(module, messages::kReload)) && DialogReturnsCannot(), "works after a reload");

  if (argc > 2) {
    OpaqueModule other = {argv[2], "", nullptr, nullptr};
    Load(other);
    Expect(Send(other, messages::kMenuGo) == ResultCode::kCannot,
           "returns the same to another plug-in");
    dlclose(other.image);
  }

  Expect(!Failed(Send(module, messages::kShutdown)) && suitesInUse == 0, "shuts down");
  Expect(allocations > 0 && blocks == 0, "frees all its blocks");
  dlclose(module.image);
  return allPassed ? 0 : 1;
}
