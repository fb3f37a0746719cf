#include "tests/host/test_plugin.h"

#include <new>

#include "platform/qpbasic/qpbasic.h"

/// Replaces the library's function, to check that the module never frees null.
ResultCode QPBasicFreeBlock(void* block) noexcept {
  EXPECT_NE(block, nullptr);
  return qpbasic::Ledger::Get().Free(block);
}

static const void* missingOptional = nullptr;

constinit const SuiteImport kPluginSuites[] = {
    ImportOf<QPBlocksSuite>(),
    {"VX Skipped Suite", 1, nullptr},
    ImportOf<VXUnicodeStringSuite>(),
    {nullptr, kOptionalSuitesFollow, nullptr},
    ImportOf<VXUserSuite>(),
    ImportOf<VXUserInterfaceMainSuite>(),
    {"VX Missing Suite", 1, &missingOptional},
    {"VX Skipped Suite", 1, nullptr},
    {},
};

Plugin* CreatePlugin(PluginRef pluginRef) {
  return new TestPlugin(pluginRef);
}

Plugin* RebindAfterReload(Plugin* kept) {
  const TestPlugin saved(*static_cast<const TestPlugin*>(kept));
  return ::new (kept) TestPlugin(saved);
}
