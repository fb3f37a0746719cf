#include <array>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <map>
#include <string>
#include <string_view>

#include "fuzz/fuzzer.h"
#include "host/plugin_main.h"
#include "mosaic/mosaic_suite.h"
#include "platform/nrvui/scripted_presenter.h"
#include "platform/standin/module.h"

// The input is a session of the host with the plug-in, one step per line:
//
//     CALLER|SELECTOR|NOTIFIER TYPE     send a message
//     >GESTURE                          append a gesture to the script of all later dialogs
//     !HEX DIGITS                       run a dialog on these bytes of record and state

namespace {

using nrvcore::FileError;
using nrvui::gestures::GestureScript;
using nrvui::gestures::ScriptedPresenter;

constexpr size_t kLongestSession = 64;

std::string_view Take(std::string_view& rest, char end) {
  const std::string_view taken = rest.substr(0, rest.find(end));
  rest.remove_prefix(std::min(taken.size() + 1, rest.size()));
  return taken;
}

/// The host passes names as C strings, which end at the first null byte.
std::string CString(std::string_view text) {
  return std::string(text.substr(0, text.find('\0')));
}

class Session {
 public:
  void Play(std::string_view lines) {
    Require(module.StartUp() == ResultCode::kSuccess);
    for (size_t i = 0; i < kLongestSession && !lines.empty(); ++i) {
      const std::string_view line = Take(lines, '\n');
      if (line.starts_with('>')) {
        gestures.append(line.substr(1)).push_back('\n');
      } else if (line.starts_with('!')) {
        Show(line.substr(1));
      } else {
        Send(line);
      }
    }
    Require(module.ShutDown() == ResultCode::kSuccess);
    Require(host.Leftovers().empty());
  }

 private:
  void Send(std::string_view line) {
    const std::string caller = CString(Take(line, '|'));
    const std::string selector = CString(Take(line, '|'));
    Require(Answer(caller, selector, CString(line)) == ResultCode::kSuccess);
  }

  ResultCode Answer(const std::string& caller, const std::string& selector,
                    const std::string& notifierType) {
    if (caller == messages::kNotifierCaller)
      return module.Notify(notifierType.c_str(), selector.c_str());
    // A host starts a plug-in once and shuts it down once; the stand-in tracks which is due.
    const bool isLifecycle = caller == "QP Interface";
    if (isLifecycle && selector == "Startup")
      return module.Globals() ? ResultCode::kSuccess : module.StartUp();
    if (isLifecycle && selector == "Shutdown") return module.ShutDown();
    return module.Send(caller.c_str(), selector.c_str());
  }

  void Show(std::string_view hex) {
    if (!module.Globals()) return;
    constexpr size_t kRecordSize = sizeof(MosaicParameters);
    std::array<uint8_t, kRecordSize + sizeof(MosaicDialogState)> given{};
    for (size_t i = 0; i < given.size() && i * 2 + 1 < hex.size(); ++i)
      std::from_chars(&hex[i * 2], &hex[i * 2] + 2, given[i], 16);
    MosaicParameters record;
    MosaicDialogState state;
    std::memcpy(&record, given.data(), sizeof record);
    std::memcpy(&state, &given[kRecordSize], sizeof state);
    try {
      ScriptedPresenter presenter(GestureScript::Parse(gestures, "gestures"));
      const nrvui::ui::InstalledPresenter installed(presenter);
      MosaicParameters* params = &record;
      const auto* const suite = host.Suites().Find<MosaicSuite>();
      const ResultCode code = suite->RunMosaicDialog(&state, &params);
      if (code != ResultCode::kSuccess) {
        Require(code == ResultCode::kCancelled || code == ResultCode::kCannot);
        Require(std::memcmp(reinterpret_cast<uint8_t*>(&record), given.data(), kRecordSize) == 0);
        Require(std::memcmp(reinterpret_cast<uint8_t*>(&state), &given[kRecordSize],
                            sizeof state) == 0);
      } else {
        Require(record.tilesAcross == record.tilesAcrossCopy);
        Require(std::memcmp(&record.boundsLeft, &given[offsetof(MosaicParameters, boundsLeft)],
                            4 * sizeof record.boundsLeft) == 0);
      }
    } catch (const FileError&) {
      gestures.clear();
    }
  }

  standin::RecordingUserInterface person;
  standin::Host host{person};
  standin::Module module{host, &PluginMain, "fuzzed"};
  std::string gestures;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Session().Play({reinterpret_cast<const char*>(data), size});
  return 0;
}
