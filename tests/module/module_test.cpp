#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/nrvui/scripted_presenter.h"
#include "platform/qpbasic/ledger.h"
#include "platform/standin/host_codes.h"
#include "tests/support/built_module.h"
#include "tests/support/temporary_folder.h"

namespace {

const std::filesystem::path kModule = MODULE_FILE;

bool IsMapped(const std::filesystem::path& file) {
  std::stringstream maps;
  maps << std::ifstream("/proc/self/maps").rdbuf();
  return maps.str().find(std::filesystem::canonical(file).string()) != std::string::npos;
}

TEST(BuiltModule, ComesBackToBeShutDown) {
  HostedModule hosted(kModule);
  {
    standin::Module away(hosted.host, kModule);
    EXPECT_EQ(away.StartUp(), ResultCode::kSuccess);
    EXPECT_EQ(away.Unload(), ResultCode::kSuccess);
  }
  EXPECT_EQ(hosted.host.Leftovers(), std::vector<std::string>{});
}

/// The module's file in another place, so that its code is another image at another address.
struct ModuleCopy : TemporaryFolder {
  ModuleCopy() { std::filesystem::copy_file(kModule, file); }
  const std::filesystem::path file = path / kModule.filename();
};

TEST(BuiltModule, IsUnloadedAndReloadedAtAnotherAddress) {
  const size_t blocks = qpbasic::Ledger::Get().Counts().blocks;
  BuiltModule built;
  standin::Module& module = built.module;
  EXPECT_EQ(qpbasic::Ledger::Get().Counts().blocks, blocks + 3)
      << "the plug-in object, its set of suites and the published table";
  const MosaicSuite* table = built.host.Suites().Find<MosaicSuite>();
  const auto firstAddress = table->RunMosaicDialog;
  void* const object = module.Globals();
  EXPECT_TRUE(IsMapped(kModule));
  ASSERT_EQ(module.Unload(), ResultCode::kSuccess);
  EXPECT_FALSE(IsMapped(kModule));

  const ModuleCopy copy;
  EXPECT_THROW((void)module.Reload(copy.path / "gone.so"), standin::LoadError);
  EXPECT_EQ(module.About(), standin::kNotLoaded);
  const standin::ModuleImage occupant(kModule);  // takes the place where the module was
  ASSERT_EQ(module.Reload(copy.file), ResultCode::kSuccess);
  EXPECT_EQ(module.Globals(), object);
  EXPECT_EQ(built.host.Suites().Find<MosaicSuite>(), table);
  EXPECT_NE(table->RunMosaicDialog, firstAddress);
  MosaicDialogState state{};
  MosaicParameters record{};
  EXPECT_EQ(built.RunDialog(record, state), ResultCode::kCannot) << "nobody presents it";
  EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
}

TEST(BuiltModule, ShutsDownInCodeLoadedAtAnotherAddressWithoutAReload) {
  standin::RecordingUserInterface person;
  standin::Host host(person);
  PluginMessage message{};
  message.pluginRef = host.AddPlugin("TesseraeUI");
  message.basicSuite = host.BasicSuite();
  {
    const standin::ModuleImage first(kModule);
    ASSERT_EQ(first.Entry()("QP Interface", "Startup", &message), ResultCode::kSuccess);
    ASSERT_EQ(first.Entry()("QP Access", "Unload", &message), ResultCode::kSuccess);
  }
  const ModuleCopy copy;
  const standin::ModuleImage occupant(kModule);  // takes the place where the module was
  const standin::ModuleImage second(copy.file);
  EXPECT_EQ(second.Entry()("QP Interface", "Shutdown", &message), ResultCode::kSuccess);
  EXPECT_EQ(message.globals, nullptr);
  host.RemovePlugin(message.pluginRef);
  EXPECT_EQ(host.Leftovers(), std::vector<std::string>{});
}

TEST(BuiltModule, KeepsRunningWhenASecondStartUpFails) {
  const auto cancel = nrvui::gestures::GestureScript::Parse("key Escape", "cancel");
  for (const char* refused : {"QP Plug-ins Suite/SetPluginName", "VX Notifier Suite/AddNotifier",
                              "QP Suites Suite/AddSuite"}) {
    SCOPED_TRACE(refused);
    HostedModule first(kModule);
    ASSERT_EQ(first.module.StartUp(), ResultCode::kSuccess);
    const MosaicSuite* table = first.host.Suites().Find<MosaicSuite>();
    const size_t blocks = qpbasic::Ledger::Get().Counts().blocks;

    const standin::ModuleImage image(kModule);
    PluginMessage second{};
    second.pluginRef = first.module.Ref();
    second.basicSuite = first.host.BasicSuite();
    first.host.Operations().Refuse(refused, ResultCode{12});
    EXPECT_EQ(image.Entry()("QP Interface", "Startup", &second), ResultCode{12});
    EXPECT_EQ(second.globals, nullptr);
    const size_t kept = refused == std::string("QP Suites Suite/AddSuite");
    EXPECT_EQ(qpbasic::Ledger::Get().Counts().blocks, blocks + kept);

    EXPECT_EQ(first.module.About(), ResultCode::kSuccess);
    EXPECT_EQ(first.person.aboutBoxes.size(), 1u);
    EXPECT_EQ(first.host.Suites().Find<MosaicSuite>(), table);
    nrvui::gestures::ScriptedPresenter person(cancel);
    const nrvui::ui::InstalledPresenter installed(person);
    MosaicParameters record = SampleRecord();
    MosaicDialogState state{};
    EXPECT_EQ(first.RunDialog(record, state), ResultCode::kCancelled);
    EXPECT_EQ(first.module.ShutDown(), ResultCode::kSuccess);
    EXPECT_EQ(first.host.Leftovers().size(), kept);
  }
}

TEST(ModuleMemory, ComesFromTheHostInEveryForm) {
  const standin::ModuleImage plugin(MEMORY_PLUGIN);
  EXPECT_EQ(plugin.Entry()("given", "", nullptr), ResultCode::kSuccess);
  qpbasic::Ledger& ledger = qpbasic::Ledger::Get();
  for (const auto code : {ResultCode::kOutOfMemory, ResultCode::kSuccess}) {
    ledger.Refuse({.countdown = 1, .once = false, .code = code});
    EXPECT_EQ(plugin.Entry()("refused", "", nullptr), ResultCode::kSuccess);
    ledger.RefuseNothing();
  }
}

}  // namespace
