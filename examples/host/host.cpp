// A host in small: host MODULE [PLUG-IN]. It leads the module through its whole life, lends it
// suites that answer plainly, and says what it saw. The other plug-in is told that its menu entry
// was chosen. There are no sheets here to build a dialog from, so the module's dialog answers
// 'CANT'; all else is as in a large host. Status 0 when all went well.

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

/// A plug-in and what the host keeps for it.
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
int blocksTaken = 0, blocks = 0, users = 0;
bool isAllWell = true;

void Expect(bool isSo, const char* what) {
  std::printf("%s: %s\n", what, isSo ? "yes" : "NO");
  isAllWell = isAllWell && isSo;
}

ResultCode Acquire(const char* name, int32_t version, const void** table) {
  const auto found = published.find({name, version});
  if (found == published.end()) return kNotFound;
  *table = found->second;
  ++users;
  return kDone;
}

ResultCode Release(const char*, int32_t) {
  --users;
  return kDone;
}

QPBasicSuite basic = {Acquire, Release};

/// This host keeps nothing behind these handles; plug-ins only hand them back.
template <typename Handle>
ResultCode GiveHandle(PluginRef, Handle* handle) {
  *handle = reinterpret_cast<Handle>(&basic);
  return kDone;
}

ResultCode SetName(PluginRef plugin, const char* name) {
  plugin->name = name;
  return kDone;
}

// A plug-in's lists lie beside its module: an entry is a line of index, tab and text.
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

const QPAccessSuite access = {GiveHandle, [](AccessHandle) { return kDone; }};
const QPPluginsSuite plugins = {{}, SetName};
const VXNotifierSuite notifiers = {
    [](PluginRef, const char*, const char*, NotifierHandle*) { return kDone; }};
const VXContextSuite contexts = {{}, GiveHandle, [](ContextHandle) { return kDone; }};
const KDMBasicSuite lists = {GetListString, {}, ShowAbout};
const QPBlocksSuite blockSuite = {
    [](size_t size, const char*, void** block) { return QPBasicAllocateBlock(size, block); },
    QPBasicFreeBlock};
const QPSuitesSuite suites = {{}, AddSuite};
const VXRealMathSuite math = {
    {}, [](float a, float b) { return a * b; }, [](float a, float b) { return a / b; }};
// Strings are made for alerts, which this host does not show.
const VXUnicodeStringSuite texts = {
    [](StringHandle*, const char*, size_t, int32_t) { return kNotFound; },
    {},
    [](StringHandle*) { return kDone; }};

template <typename Suite>
void Lend(const Suite& table) {
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

/// Calls the module's suite as any caller does.
bool AsksInVain() {
  const void* table = nullptr;
  if (Failed(Acquire(MosaicSuite::kName, MosaicSuite::kVersion, &table))) return false;
  MosaicParameters record = {}, *address = &record;
  MosaicDialogState state = {};
  record.boundsRight = record.boundsBottom = 100;
  const MosaicParameters before = record;
  const auto* suite = static_cast<const MosaicSuite*>(table);
  const ResultCode answer = suite->RunMosaicDialog(&state, &address);
  (void)Release(MosaicSuite::kName, MosaicSuite::kVersion);
  return answer == ResultCode::kCannot && std::memcmp(&record, &before, sizeof record) == 0;
}

}  // namespace

ResultCode QPBasicAllocateBlock(size_t size, void** block) noexcept {
  *block = std::malloc(size ? size : 1);
  if (!*block) return ResultCode::kOutOfMemory;
  ++blocksTaken, ++blocks;
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
  Lend(access), Lend(plugins), Lend(notifiers), Lend(contexts), Lend(lists);
  Lend(blockSuite), Lend(suites), Lend(math), Lend(texts);

  OpaqueModule module = {path, "", nullptr, nullptr};
  Load(module);
  Expect(!Failed(Send(module, messages::kStartup)), "starts up");
  Expect(!Failed(Send(module, messages::kNotify)), "hears that the host has started");
  Expect(!Failed(Send(module, messages::kAbout)), "shows its about box");
  Expect(AsksInVain(), "publishes a suite, whose dialog answers 'CANT' and changes nothing");
  Expect(!Failed(Send(module, messages::kUnload)) && users == 0, "holds no suite when unloaded");
  dlclose(module.image);
  Expect(!dlopen(path, RTLD_LAZY | RTLD_NOLOAD), "leaves the memory");
  Load(module);
  Expect(!Failed(Send(module, messages::kReload)) && AsksInVain(), "comes back as it was");

  if (argc > 2) {
    OpaqueModule other = {argv[2], "", nullptr, nullptr};
    Load(other);
    Expect(Send(other, messages::kMenuGo) == ResultCode::kCannot, "answers another plug-in");
    dlclose(other.image);
  }

  Expect(!Failed(Send(module, messages::kShutdown)) && users == 0, "shuts down");
  Expect(blocksTaken > 0 && blocks == 0, "gives back all that it took");
  dlclose(module.image);
  return isAllWell ? 0 : 1;
}
