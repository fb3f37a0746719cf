// Hands every message on to the sound module and lies in the one way that its file's name says; a
// name without a lie leaves it sound. Between host and module stand a basic suite, tables of the
// host's suites and a function of the published suite, all its own.

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <clocale>
#include <csignal>
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
  bool Begins() const { return Is("Startup") || Is("Reload"); }

  const char* caller;
  const char* selector;
  PluginMessage& record;
};

struct Release {
  ResultCode Pass() const { return host->Release(suite, version); }

  const char* suite;
  int32_t version;
};

/// A dialog that has been run.
struct Dialog {
  MosaicParameters** params;
  MosaicParameters& record = **params;
  const MosaicParameters given = record;
};

/// What a lie has in its place; a code is what the sound module has answered.
using Sending = ResultCode (*)(Message message);
using Answer = ResultCode (*)(Message message, ResultCode code);
using Releasing = ResultCode (*)(Release release);
using DialogEnd = ResultCode (*)(Dialog dialog, ResultCode code);
using Table = const void* (*)(string_view suite, const void* table);

struct Lie {
  const char* name;
  std::variant<Sending, Answer, Releasing, DialogEnd, Table> replacement;
};

/// Replaces an operation in its table by a function, whose first argument is the host's own.
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

/// The suite's table, whose address is the last member of the plug-in's object.
MosaicSuite& PublishedTable(const PluginMessage& record) {
  return **(reinterpret_cast<MosaicSuite**>(static_cast<TesseraeUI*>(record.globals) + 1) - 1);
}

constexpr Lie kLies[] = {
    {"suite-without-table-used",
     [](string_view, const void* table) { return table ? table : (std::abort(), table); }},
    {"suite-never-released",
     [](Release held) {
       return held.suite == string_view("VX Context Suite") ? kSuccess : held.Pass();
     }},
    {"suite-released-twice",
     [](Release held) { return (void)held.Pass(), (void)held.Pass(), kSuccess; }},
    {"failed-release-passed-over", [](Release held) { return (void)held.Pass(), kSuccess; }},
    {"notifier-of-another-name",
     In<&VXNotifierSuite::AddNotifier>([](auto add, PluginRef plugin, auto, auto... more) {
       return add(plugin, "App Started Notifier", more...);
     })},
    {"block-not-freed", In<&QPBlocksSuite::FreeBlock>([](auto...) { return kSuccess; })},
    {"not-handled-start-up-passes",
     [](Message, ResultCode code) { return code == ResultCode::kNotHandled ? kSuccess : code; }},
    {"code-of-one-operation-changed",
     In<&QPPluginsSuite::SetPluginName>([](auto set, auto... arguments) {
       return Failed(set(arguments...)) ? ResultCode::kCannot : kSuccess;
     })},
    {"exception-leaves",
     [](Message, ResultCode code) { return code == ResultCode::kOutOfMemory ? throw 7 : code; }},

    {"unknown-message-not-handled",
     [](Message message, ResultCode code) {
       return message.Is("") ? ResultCode::kNotHandled : code;
     }},
    {"answers-although-unloaded",
     [](Message message) {
       if (message.Is("About")) (void)Message{"QP Access", "Reload", message.record}.Send();
       return message.Send();
     }},
    {"context-left-open", In<&VXContextSuite::PopAppContext>([](auto...) { return kSuccess; })},
    {"context-of-nobody",
     In<&VXContextSuite::PushAppContext>(
         [](auto push, PluginRef, ContextHandle* context) { return push(nullptr, context); })},
    {"basic-suite-of-start-up-kept",
     [](Message message) {
       static QPBasicSuite* kept;
       if (message.Begins()) kept = message.record.basicSuite;
       QPBasicSuite* const latest = std::exchange(message.record.basicSuite, kept);
       const ResultCode code = message.Send();
       return message.record.basicSuite = latest, code;
     }},

    {"alert-shown-twice", In<&VXUserSuite::ShowErrorAlert>(
                              [](auto show, auto text) { return (void)show(text), show(text); })},
    {"text-of-alert-not-released",
     In<&VXUnicodeStringSuite::Dispose>([](auto...) { return kSuccess; })},
    {"text-of-alert-released-twice",
     In<&VXUnicodeStringSuite::Dispose>([](auto dispose, StringHandle* text) {
       StringHandle copy = *text;
       return (void)dispose(text), dispose(&copy);
     })},

    {"function-kept-over-reload",
     [](Message message) {
       if (!message.Is("Reload") || !message.record.globals) return message.Send();
       const auto former = PublishedTable(message.record).RunMosaicDialog;
       const ResultCode code = message.Send();
       return PublishedTable(message.record).RunMosaicDialog = former, code;
     }},
    {"object-lost-without-reload",
     [](Message message) {
       static bool hasBegun;
       hasBegun |= message.Begins();
       if (message.Is("Shutdown") && !hasBegun) message.record.globals = nullptr;
       return message.Send();
     }},
    {"stays-in-memory",
     [](Message message, ResultCode code) {
       Dl_info self{};
       if (message.Begins() && dladdr(&host, &self)) (void)dlopen(self.dli_fname, RTLD_NOW);
       return code;
     }},
    {"handler-left-in-process",
     [](Message message, ResultCode code) {
       if (message.Begins()) std::signal(SIGTERM, [](int) { std::abort(); });
       return code;
     }},
    {"locale-of-process-changed",
     [](Message, ResultCode code) { return std::setlocale(LC_NUMERIC, "C.UTF-8"), code; }},
    {"descriptor-left-at-reload",
     [](Message message, ResultCode code) {
       return message.Is("Reload") && open("/dev/null", O_RDONLY) < 0 ? ResultCode::kCannot : code;
     }},
    {"hang-at-odd-selector",
     [](Message message) {
       while (message.selector && (message.selector[0] & 0x80) != 0) pause();
       return message.Send();
     }},

    {"record-written-on-cancel",
     [](Dialog dialog, ResultCode code) {
       if (code == ResultCode::kCancelled) dialog.record.reserved60 = 0;
       return code;
     }},
    {"field-not-written",
     [](Dialog dialog, ResultCode code) {
       dialog.record.tileSpacingVertical = dialog.given.tileSpacingVertical;
       return code;
     }},
    {"record-written-where-it-was",
     [](Dialog dialog, ResultCode code) { return dialog.record = **dialog.params, code; }},
    {"address-of-record-changed",
     [](Dialog dialog, ResultCode code) { return *dialog.params = nullptr, code; }},
    {"arithmetic-of-its-own",
     In<&VXRealMathSuite::Multiply>([](auto, float a, float b) { return a * b; })},
};

const Lie* Find() {
  Dl_info self{};
  dladdr(&host, &self);
  string_view name = self.dli_fname;
  name.remove_prefix(name.rfind('/') + 1);
  for (const Lie& lie : kLies)
    if (name.substr(0, name.find('.')) == lie.name) return &lie;
  return nullptr;
}

/// Null where the lie is another's.
template <class Replacement>
Replacement Chosen() {
  static const Lie* const lie = Find();
  const auto* const chosen = lie ? std::get_if<Replacement>(&lie->replacement) : nullptr;
  return chosen ? *chosen : nullptr;
}

QPBasicSuite basicSuite = {
    [](const char* suite, int32_t version, const void** table) {
      const ResultCode code = host->Acquire(suite, version, table);
      const auto replace = Chosen<Table>();
      if (replace && !Failed(code)) *table = replace(suite, *table);
      return code;
    },
    [](const char* suite, int32_t version) {
      const Release release = {suite, version};
      const auto lie = Chosen<Releasing>();
      return lie ? lie(release) : release.Pass();
    },
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
