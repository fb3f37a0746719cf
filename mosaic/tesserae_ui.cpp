#include "mosaic/tesserae_ui.h"

#include <new>
#include <utility>

#include "host/bounded_string.h"
#include "host/error.h"
#include "mosaic/run_mosaic_dialog.h"

constinit const SuiteImport kPluginSuites[] = {
    ImportOf<QPBlocksSuite>(),
    ImportOf<QPSuitesSuite>(),
    ImportOf<VXRealMathSuite>(),
    ImportOf<VXUnicodeStringSuite>(),
    SuiteImport{},
};

constinit Plugin* currentPlugin = nullptr;

namespace {

constexpr const char* kName = "TesseraeUI";
constexpr int32_t kInternalVersion = 1;

}  // namespace

Plugin* CreatePlugin(PluginRef pluginRef) {
  return new TesseraeUI(pluginRef);
}

Plugin* RebindAfterReload(Plugin* kept) {
  const TesseraeUI saved(*static_cast<const TesseraeUI*>(kept));
  return ::new (kept) TesseraeUI(saved);
}

TesseraeUI::TesseraeUI(PluginRef reference) : Plugin(reference) {
  BoundedCopy(name, sizeof(name), kName, sizeof(name));
}

ResultCode TesseraeUI::OnStartup(PluginMessage* message) {
  Plugin* const earlier = currentPlugin;
  ResultCode code = Plugin::OnStartup(message);
  if (!Failed(code)) code = AddTesseraeSuite();
  // An earlier plug-in object stays the current one.
  if (Failed(code)) (void)SetCurrentPlugin(earlier);
  return code;
}

ResultCode TesseraeUI::AddTesseraeSuite() {
  void* block = nullptr;
  try {
    (void)Suite<QPBlocksSuite>()->AllocateBlock(sizeof(MosaicSuite), kName, &block);
    suiteFunctions = static_cast<MosaicSuite*>(block);
    if (!suiteFunctions) return ResultCode::kParameter;
    suiteFunctions->RunMosaicDialog = &RunMosaicDialog;
    SuiteHandle suite = nullptr;
    // If the host refuses, the block stays: the host may have kept the address of the table.
    return Suite<QPSuitesSuite>()->AddSuite(nullptr, pluginRef, MosaicSuite::kName,
                                            MosaicSuite::kVersion, kInternalVersion, suiteFunctions,
                                            &suite);
  } catch (...) {
    suiteFunctions = static_cast<MosaicSuite*>(block);
    (void)FreeSuiteFunctions();
    return ResultCode::kParameter;
  }
}

ResultCode TesseraeUI::SetCurrentPlugin(Plugin* plugin) {
  currentPlugin = plugin;
  if (suiteFunctions) suiteFunctions->RunMosaicDialog = &RunMosaicDialog;
  return ResultCode::kSuccess;
}

ResultCode TesseraeUI::OnShutdown(PluginMessage* message) {
  const ResultCode code = FreeSuiteFunctions();
  if (!Failed(code)) return Plugin::OnShutdown(message);
  // After a failure, too, PluginMain destroys the object.
  (void)SetCurrentPlugin(nullptr);
  return code;
}

ResultCode TesseraeUI::FreeSuiteFunctions() {
  MosaicSuite* block = std::exchange(suiteFunctions, nullptr);
  if (!block) return ResultCode::kSuccess;
  return Guarded([block] {
    // While unloaded the module holds no suites but still owns the block.
    const ScopedSuite<QPBlocksSuite> blocks;
    return blocks ? blocks->FreeBlock(block) : ResultCode::kCannot;
  });
}
