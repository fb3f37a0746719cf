// A module with one fault, for tests of tesserae-check. The name of its file selects the fault;
// with any other name it has none. It passes each message on to the sound module and puts its own
// basic suite, tables of the host's suites and function of the published suite between host and
// module.

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>
#include <variant>

#include "host/plugin_main.h"
#include "mosaic/mosaic_suite.h"
#include "mosaic/tesserae_ui.h"
#include "platform/suites/host_suites.h"

namespace {

using std::string_view;

constexpr auto kSuccess = ResultCode::kSuccess;

QPBasicSuite* host;
decltype(MosaicSuite::RunMosaicDialog) soundDialog;

struct Message {
  ResultCode Send() const;
  bool Is(string_view name) const { return selector && selector == name; }

  const char* caller;
  const char* selector;
  PluginMessage& record;
};

/// A request for the dialog.
struct Dialog {
  MosaicParameters** params;
  MosaicParameters& record = **params;
  const MosaicParameters given = record;
};

/// What a fault replaces. `code` is the answer of the sound module.
using Sending = ResultCode (*)(Message message);
using Answer = ResultCode (*)(Message message, ResultCode code);
using DialogEnd = ResultCode (*)(Dialog dialog, ResultCode code);
using Table = const void* (*)(string_view suite, const void* table);

struct Fault {
  const char* name;
  std::variant<Sending, Answer, DialogEnd, Table> replacement;
};

/// Replaces an operation in its table by a function, whose first argument is the host's operation.
template <auto kOperation>
struct Slot;
template <class Suite, class Result, class... Arguments, Result (*Suite::*kOperation)(Arguments...)>
struct Slot<kOperation> {
  template <class Function>
  static const void* Replace(string_view suite, const void* table) {
    if (suite != Suite::kName || !table) return table;
    static Suite copy;
    static Result (*original)(Arguments...);
    copy = *static_cast<const Suite*>(table);
    original = copy.*kOperation;
    copy.*kOperation = [](Arguments... arguments) -> Result {
      return Function()(original, arguments...);
    };
    return &copy;
  }
};
template <auto kOperation, class Function>
constexpr Table In(Function) {
  return &Slot<kOperation>::template Replace<Function>;
}

/// The published table, whose address is the last member of the plug-in object.
MosaicSuite& PublishedTable(const PluginMessage& record) {
  return **(reinterpret_cast<MosaicSuite**>(static_cast<TesseraeUI*>(record.globals) + 1) - 1);
}

void CloseAll() {
  for (int descriptor = 0; descriptor < 1024; ++descriptor) close(descriptor);
}

constexpr Fault kFaults[] = {
    {"exits",
     [](Message message) { return message.Is("About") ? std::exit(0) : void(), message.Send(); }},
    {"hangs-without-descriptors",
     [](Message message) {
       if (message.Is("About")) CloseAll();
       while (message.Is("About")) pause();
       return message.Send();
     }},
    {"leaves-process",
     [](Message message) {
       while (message.Is("About") && fork() == 0) pause();
       return message.Send();
     }},
    {"writes-without-end",
     [](Message message) {
       while (message.Is("About")) std::puts("About");
       return message.Send();
     }},
    {"refusal-swallowed", In<&QPPluginsSuite::SetPluginName>([](auto set, auto... arguments) {
       return (void)set(arguments...), kSuccess;
     })},
    {"block-not-freed", In<&QPBlocksSuite::FreeBlock>([](auto...) { return kSuccess; })},
    {"stays-in-memory",
     [](Message message, ResultCode code) {
       Dl_info self{};
       if (message.Is("Startup") && dladdr(&host, &self)) (void)dlopen(self.dli_fname, RTLD_NOW);
       return code;
     }},
    {"descriptor-left-at-reload",
     [](Message message, ResultCode code) {
       return message.Is("Reload") && open("/dev/null", O_RDONLY) < 0 ? ResultCode::kCannot : code;
     }},
    {"reads-beyond-record",
     [](Dialog dialog, ResultCode code) {
       return dialog.params[0][1].isColor == 7 ? ResultCode::kCannot : code;
     }},
    {"record-written-on-cancel",
     [](Dialog dialog, ResultCode code) {
       if (code == ResultCode::kCancelled) dialog.record.reserved60 = 0;
       return code;
     }},
};

const Fault* Find() {
  Dl_info self{};
  dladdr(&host, &self);
  string_view name = self.dli_fname;
  name.remove_prefix(name.rfind('/') + 1);
  for (const Fault& fault : kFaults)
    if (name.substr(0, name.find('.')) == fault.name) return &fault;
  return nullptr;
}

/// Null if the fault is of another kind.
template <class Replacement>
Replacement Chosen() {
  static const Fault* const fault = Find();
  const auto* const chosen = fault ? std::get_if<Replacement>(&fault->replacement) : nullptr;
  return chosen ? *chosen : nullptr;
}

QPBasicSuite basicSuite = {
    [](const char* suite, int32_t version, const void** table) {
      const ResultCode code = host->Acquire(suite, version, table);
      const auto replace = Chosen<Table>();
      if (replace && !Failed(code)) *table = replace(suite, *table);
      return code;
    },
    [](const char* suite, int32_t version) { return host->Release(suite, version); },
};

ResultCode RunDialog(MosaicDialogState* state, MosaicParameters** params) {
  const auto end = Chosen<DialogEnd>();
  if (!end || !state || !params || !*params) return soundDialog(state, params);
  const Dialog dialog = {params};
  return end(dialog, soundDialog(state, params));
}

ResultCode Message::Send() const {
  static void* const sound = dlopen(SOUND_MODULE, RTLD_NOW | RTLD_LOCAL);
  static const auto entry = reinterpret_cast<PluginEntryPoint>(dlsym(sound, kPluginEntryName));
  host = record.basicSuite;
  if (host) record.basicSuite = &basicSuite;
  const ResultCode code = entry(caller, selector, &record);
  record.basicSuite = host;
  if (record.globals && PublishedTable(record).RunMosaicDialog != &RunDialog)
    soundDialog = std::exchange(PublishedTable(record).RunMosaicDialog, &RunDialog);
  return code;
}

}  // namespace

ResultCode PluginMain(const char* caller, const char* selector, PluginMessage* record) {
  const Message message = {caller, selector, *record};
  if (const auto send = Chosen<Sending>()) return send(message);
  const ResultCode code = message.Send();
  const auto answer = Chosen<Answer>();
  return answer ? answer(message, code) : code;
}
