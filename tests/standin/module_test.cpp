#include "platform/standin/module.h"

#include <dlfcn.h>

#include "platform/qpbasic/qpbasic.h"
#include "platform/standin/host_codes.h"
#include "standin/host_test.h"

namespace {

using standin::Module;

class ModuleTest : public HostTest {};

TEST_F(ModuleTest, IsALibraryWithAnEntryPoint) {
  Dl_info library;
  ASSERT_NE(dladdr(reinterpret_cast<void*>(&QPBasicFreeBlock), &library), 0);
  resources.Write("text.so", "this is no library");
  for (const auto& file : {resources.path / "missing.so", resources.path / "text.so",
                           std::filesystem::path(library.dli_fname)})
    EXPECT_THROW(Module(host, file), standin::LoadError) << file;
  EXPECT_EQ(host.Objects().modules.Size(), 2U) << "the host's own and the fixture's";
}

TEST_F(ModuleTest, StaysInMemoryWhileSomethingNeedsIt) {
  const auto answerSuccess = [](const char*, const char*, PluginMessage*) {
    return ResultCode::kSuccess;
  };
  Module module(host, answerSuccess, "linked");
  host.Objects().accesses.Add({module.Ref()});
  EXPECT_EQ(module.Unload(), standin::kPluginInUse);
  EXPECT_EQ(module.About(), ResultCode::kSuccess);
  host.Objects().accesses.RemoveIf([](const auto&) { return true; });
  EXPECT_EQ(module.Unload(), ResultCode::kSuccess);
  EXPECT_EQ(module.About(), standin::kNotLoaded);
  EXPECT_EQ(module.Unload(), standin::kNotLoaded);
  EXPECT_EQ(module.Reload(), ResultCode::kSuccess);
  EXPECT_EQ(module.About(), ResultCode::kSuccess);
}

}  // namespace
