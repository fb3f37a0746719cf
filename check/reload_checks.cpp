#include <fenv.h>
#include <sys/stat.h>
#include <unistd.h>

#include <clocale>
#include <csignal>
#include <cstring>
#include <exception>
#include <new>

#include "check/checked_module.h"
#include "platform/standin/host_codes.h"
#include "testkit/temporary_folder.h"

namespace check {
namespace {

bool IsInMemory(const std::filesystem::path& file) {
  return testkit::ContentOf("/proc/self/maps").find(canonical(file).string()) != std::string::npos;
}

/// A copy of the module's file, which the loader maps as another image at another address.
struct ModuleCopy : testkit::TemporaryFolder {
  ModuleCopy() { std::filesystem::copy_file(settings.module, file); }
  const std::filesystem::path file = path / settings.module.filename();
};

mode_t Umask() {
  const mode_t mask = umask(0);
  (void)umask(mask);
  return mask;
}

/// What a module could change in its process.
std::vector<std::string> StateOfProcess() {
  const auto text = [](const char* what, auto value) {
    return what + (" " + std::to_string(reinterpret_cast<uintptr_t>(value)));
  };
  std::vector<std::string> state = {
      std::string("locale ") + std::setlocale(LC_ALL, nullptr),
      "folder " + std::filesystem::current_path().string(),
      "rounding " + std::to_string(fegetround()),
      "floating-point traps " + std::to_string(fegetexcept()),
#ifdef __SSE__  // traps, rounding and denormal numbers, without the flags of past operations
      "control of vector arithmetic " + std::to_string(__builtin_ia32_stmxcsr() & 0xFFC0),
#endif
      "mask of new files " + std::to_string(Umask()),
      text("terminate handler", std::get_terminate()),
      text("new handler", std::get_new_handler()),
  };
  for (int number = 1; number < NSIG; ++number) {
    struct sigaction action {};
    if (sigaction(number, nullptr, &action) == 0 && action.sa_handler != SIG_DFL)
      state.push_back(text(strsignal(number), action.sa_handler));
  }
  for (char** variable = environ; *variable; ++variable)
    state.push_back("variable " + std::string(*variable));
  for (const char* things : {"task", "fd"})
    for (const auto& thing :
         std::filesystem::directory_iterator(std::string("/proc/self/") + things))
      state.push_back(things + (" " + thing.path().filename().string()));
  return state;
}

CHECK("reload/continues-at-another-address") {
  RunningModule running;
  standin::Module& module = running.module;
  const MosaicSuite* const table = running.host.Suites().Find<MosaicSuite>();
  const auto firstAddress = table->RunMosaicDialog;
  void* const object = module.Globals();
  Expect("in memory", IsInMemory(settings.module));
  Expect("the unload", module.Unload(), kSuccess);
  Expect("in memory after the unload", IsInMemory(settings.module), false);

  const ModuleCopy copy;
  const standin::ModuleImage occupant(settings.module);  // occupies the previous address
  running.ExpectCalls("the reload", WithSuites("acquire/"),
                      [&] { return module.Reload(copy.file); });
  Expect("the same object", module.Globals() == object);
  Expect("the same table", running.host.Suites().Find<MosaicSuite>() == table);
  Expect("the function's address has changed", table->RunMosaicDialog != firstAddress);
  running.ExpectRunning();
}

CHECK("reload/holds-no-suites-after-failure") {
  RunningModule running;
  standin::Host& host = running.host;
  standin::Module& module = running.module;
  Expect("the unload", module.Unload(), kSuccess);
  host.Operations().Refuse("acquire/VX Context Suite", kRefused);
  Expect("the reload", module.Reload(), kRefused);
  Expect("suites in use", host.Suites().Users("QP Access Suite"), 0u);
  Expect("alerts", running.person.alerts.size(), 1u);
  Expect("about", module.About(), kSuccess);
  Expect("about boxes", running.person.aboutBoxes.size(), 0u);
  Expect("the next reload", module.Reload(), kSuccess);
  Expect("calls of SetPluginName", host.Operations().Calls("QP Plug-ins Suite/SetPluginName"), 1u);
  Expect("calls of AddNotifier", host.Operations().Calls("VX Notifier Suite/AddNotifier"), 1u);
  running.ExpectDialog();
}

CHECK("shut-down/acquires-suites-while-unloaded") {
  RunningModule running;
  Expect("the unload", running.module.Unload(), kSuccess);
  const Calls end = Joined({"QP Blocks Suite/FreeBlock"}, WithSuites("release/"));
  running.ExpectCalls("the shut-down", Joined(WithSuites("acquire/"), end),
                      [&] { return running.module.ShutDown(); });
}

ResultCode Send(const standin::ModuleImage& image, const MessageName& name,
                PluginMessage& message) {
  return image.Entry()(name.caller, name.selector, &message);
}

CHECK("shut-down/works-at-another-address-without-reload") {
  standin::RecordingUserInterface person;
  standin::Host host(person);
  PluginMessage message{};
  message.pluginRef = host.AddPlugin("TesseraeUI");
  message.basicSuite = host.BasicSuite();
  {
    const standin::ModuleImage first(settings.module);
    Expect("the start-up", Send(first, messages::kStartup, message), kSuccess);
    Expect("the unload", Send(first, messages::kUnload, message), kSuccess);
  }
  const ModuleCopy copy;
  const standin::ModuleImage occupant(settings.module);  // occupies the previous address
  const standin::ModuleImage second(copy.file);
  Expect("the shut-down", Send(second, messages::kShutdown, message), kSuccess);
  Expect("globals", message.globals, nullptr);
  host.RemovePlugin(message.pluginRef);
  Expect("what is left", host.Leftovers(), Calls());
}

// The suite whose release fails and those after it stay in use.
CHECK("shut-down/stops-at-suite-that-cannot-be-released") {
  CheckedModule checked;
  Expect("the start-up", checked.module.StartUp(), kSuccess);
  checked.host.Operations().Refuse("release/QP Plug-ins Suite", kRefused);
  Expect("the shut-down", checked.module.ShutDown(), kSuccess);
  size_t users = 0;  // of the first; one of each other
  for (const char* suite : kSuitesOfModule)
    Expect(suite, checked.host.Suites().Users(suite), std::exchange(users, 1));
}

CHECK("shut-down/ends-if-table-cannot-be-freed") {
  CheckedModule checked;
  standin::Host& host = checked.host;
  standin::Module& module = checked.module;
  Expect("the start-up", module.StartUp(), kSuccess);
  const MosaicSuite* const table = host.Suites().Find<MosaicSuite>();
  host.Operations().Refuse("QP Blocks Suite/FreeBlock", kRefused);
  MosaicParameters record = SampleRecord();
  MosaicDialogState state{};
  MosaicParameters* params = &record;
  Expect("the shut-down", module.ShutDown(), kRefused);
  Expect("globals", module.Globals(), nullptr);
  checked.ExpectNoDialog("a dialog", table->RunMosaicDialog, &state, &params);
  Expect("alerts", checked.person.alerts.size(), 1u);
  Expect("users of a suite", host.Suites().Users("QP Access Suite"), 1u);

  Expect("the next start-up", module.StartUp(), kSuccess);
  Expect("the unload", module.Send(messages::kUnload), kSuccess);
  host.Suites().SetAbsent("QP Blocks Suite");
  Expect("a shut-down without QP Blocks Suite", module.ShutDown(), kCannot);
  Expect("globals", module.Globals(), nullptr);
}

CHECK("life/leaves-process-unchanged") {
  const auto before = StateOfProcess();
  {
    RunningModule running;
    running.person = {};
    const auto expectSame = [&](const char* when) { Expect(when, StateOfProcess(), before); };
    expectSame("the process after the start-up");
    Expect("about", running.module.About(), kSuccess);
    Expect("a notifier", running.module.Notify(messages::kStartedNotifierType), kSuccess);
    expectSame("the process after messages");
    running.ExpectDialog();
    expectSame("the process after a dialog");
  }
  Expect("the process after the shut-down", StateOfProcess(), before);
}

}  // namespace
}  // namespace check
