#pragma once

#include <gtest/gtest.h>

#include "testkit/hosted_module.h"

/// The module as it is built, started; nothing may be left of it in the end.
struct BuiltModule : HostedModule {
  explicit BuiltModule(
      const standin::ResourceFolders& resources = standin::ResourceFolders::OfProgram())
      : HostedModule(MODULE_FILE, resources) {
    EXPECT_EQ(module.StartUp(), ResultCode::kSuccess);
  }
  ~BuiltModule() {
    EXPECT_EQ(module.ShutDown(), ResultCode::kSuccess);
    EXPECT_EQ(host.Leftovers(), std::vector<std::string>{});
  }
};
