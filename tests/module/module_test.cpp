#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "module/story.h"
#include "platform/qpbasic/ledger.h"

namespace {

bool IsMapped(const std::filesystem::path& file) {
  std::stringstream maps;
  maps << std::ifstream("/proc/self/maps").rdbuf();
  return maps.str().find(std::filesystem::canonical(file).string()) != std::string::npos;
}

TEST(BuiltModule, LivesItsLifeAndLeavesNothing) {
  Story story;
  story.PlayLife();
  EXPECT_TRUE(story.IsUndisturbed());
  EXPECT_TRUE(story.person.alerts.empty());
  EXPECT_EQ(story.person.aboutBoxes.size(), 1u);
  EXPECT_EQ(story.host.Leftovers(), std::vector<std::string>{});
}

TEST(BuiltModule, TakesAllItsMemoryFromTheHost) {
  standin::RecordingUserInterface person;
  standin::Host host(person);
  standin::Module module(host, ModuleFile());
  const size_t before = qpbasic::Ledger::Get().Counts().blocks;
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  EXPECT_EQ(qpbasic::Ledger::Get().Counts().blocks, before + 3)
      << "the plug-in object, its set of suites and the published table";
  EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
  EXPECT_EQ(qpbasic::Ledger::Get().Counts().blocks, before);
}

TEST(BuiltModule, LeavesTheProcessAndComesBackElsewhere) {
  standin::RecordingUserInterface person;
  standin::Host host(person);
  standin::Module module(host, ModuleFile());
  ASSERT_EQ(module.StartUp(), ResultCode::kSuccess);
  const MosaicSuite* table = host.Suites().Find<MosaicSuite>();
  const auto firstAddress = table->RunMosaicDialog;
  void* const object = module.Globals();
  EXPECT_TRUE(IsMapped(ModuleFile()));

  // Something else moves in where the module was, so that it must come up at another address.
  const std::filesystem::path copy =
      std::filesystem::temp_directory_path() / ("TesseraeUI-" + std::to_string(getpid()) + ".so");
  std::filesystem::copy_file(ModuleFile(), copy, std::filesystem::copy_options::overwrite_existing);
  const standin::ModuleImage tenant(copy);
  ASSERT_EQ(module.Unload(), ResultCode::kSuccess);
  EXPECT_FALSE(IsMapped(ModuleFile()));
  const std::filesystem::path other = copy.string() + "2";
  std::filesystem::copy_file(copy, other, std::filesystem::copy_options::overwrite_existing);
  const standin::ModuleImage secondTenant(ModuleFile());
  ASSERT_EQ(module.Reload(other), ResultCode::kSuccess);

  EXPECT_EQ(module.Globals(), object);
  EXPECT_EQ(host.Suites().Find<MosaicSuite>(), table);
  EXPECT_NE(table->RunMosaicDialog, firstAddress);
  MosaicDialogState state{};
  MosaicParameters record{};
  MosaicParameters* params = &record;
  EXPECT_EQ(table->RunMosaicDialog(&state, &params), ResultCode::kCannot) << "nobody presents it";
  EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
  EXPECT_EQ(host.Leftovers(), std::vector<std::string>{});
  std::filesystem::remove(copy);
  std::filesystem::remove(other);
}

}  // namespace
