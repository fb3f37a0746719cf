#include "platform/standin/module.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include "platform/standin/host_codes.h"
#include "tests/standin/temporary_folder.h"

namespace {

using standin::Module;

class ModuleTest : public testing::Test {
 protected:
  static std::filesystem::path Library(const char* name) {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "lib" /
           name;
  }

  std::string LoadFailure(const std::filesystem::path& file) {
    try {
      Module module(host, file);
      return "loaded";
    } catch (const standin::LoadError& error) {
      return error.what();
    }
  }

  TemporaryFolder folder;
  standin::RecordingUserInterface screen;
  standin::Host host{screen, folder.path};
};

TEST_F(ModuleTest, SaysWhyAFileCannotBeLoaded) {
  folder.Write("text.so", "this is no library");
  const std::string missing = (folder.path / "missing.so").string();
  EXPECT_EQ(LoadFailure(missing), "cannot load " + missing + ": there is no such file");
  EXPECT_TRUE(LoadFailure(folder.path / "text.so").starts_with("cannot load "));
  EXPECT_TRUE(LoadFailure(Library("no_plugin.so"))
                  .ends_with("it is no plug-in, since it has no "
                             "PluginMain"));
  EXPECT_EQ(host.Objects().modules.Size(), 1U) << "only the host's own";
}

TEST_F(ModuleTest, KeepsGlobalsFromMessageToMessageAndTheCodeFromLoadToUnload) {
  const std::filesystem::path library = Library("echo_plugin.so");
  Module module(host, library);
  EXPECT_EQ(module.Globals(), nullptr);
  EXPECT_EQ(module.StartUp(), ResultCode::kSuccess);
  void* const globals = module.Globals();
  EXPECT_NE(globals, nullptr);
  EXPECT_EQ(module.Send("Test", "Count"), ResultCode{2});
  EXPECT_EQ(module.Notify("type", "Type"), ResultCode::kSuccess);

  host.Objects().accesses.Add({module.Ref()});
  EXPECT_EQ(module.Unload(), standin::kPluginInUse);
  host.Objects().accesses.RemoveIf([](const auto&) { return true; });
  EXPECT_EQ(module.Unload(), ResultCode::kSuccess);
  EXPECT_FALSE(module.IsLoaded());
  EXPECT_EQ(module.Globals(), globals);
  EXPECT_EQ(dlopen(library.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr) << "still in the process";
  EXPECT_EQ(module.Send("Test", "Count"), standin::kNotLoaded);
  EXPECT_EQ(module.Unload(), standin::kNotLoaded);

  std::filesystem::copy_file(library, folder.path / "copy.so");
  EXPECT_THROW(static_cast<void>(module.Reload(folder.path / "missing.so")), standin::LoadError);
  EXPECT_EQ(module.Reload(folder.path / "copy.so"), ResultCode::kSuccess);
  EXPECT_EQ(module.Send("Test", "Count"), ResultCode{2}) << "new code counts from the start";
  EXPECT_EQ(module.Unload(), ResultCode::kSuccess);
  EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess) << "the code comes back for its end";
  EXPECT_EQ(module.Globals(), nullptr);
}

}  // namespace
