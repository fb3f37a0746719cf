#include "tests/host/test_plugin.h"

#include <new>

#include "platform/qpbasic/qpbasic.h"

/// Takes the place of the library's: the module gives back no block that it never had.
ResultCode QPBasicFreeBlock(void* block) noexcept {
  EXPECT_NE(block, nullptr);
  return qpbasic::Ledger::Get().Free(block);
}

static const void* missingOptional = nullptr;

constinit const SuiteImport kPluginSuites[] = {
    ImportOf<QPBlocksSuite>(),
    {"VX Suite For Nobody", 1, nullptr},
    ImportOf<VXUnicodeStringSuite>(),
    {nullptr, kOptionalSuitesFollow, nullptr},
    ImportOf<VXUserSuite>(),
    ImportOf<VXUserInterfaceMainSuite>(),
    {"VX Suite Of Tomorrow", 1, &missingOptional},
    {"VX Suite For Nobody", 1, nullptr},
    {},
};

Plugin* CreatePlugin(PluginRef pluginRef) {
  return new TestPlugin(pluginRef);
}

Plugin* RebindAfterReload(void* kept) {
  const TestPlugin saved(*static_cast<const TestPlugin*>(kept));
  return ::new (kept) TestPlugin(saved);
}
