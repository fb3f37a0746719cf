#pragma once

#include "host/plugin.h"
#include "mosaic/mosaic_suite.h"

/// The module's plug-in: publishes the suite with the mosaic dialog and leaves every message to
/// the framework.
class TesseraeUI : public Plugin {
 public:
  explicit TesseraeUI(PluginRef pluginRef);
  /// Carries the members over to the reloaded code; the copy takes the original's place.
  TesseraeUI(const TesseraeUI&) = default;

  ResultCode OnStartup(PluginMessage* message) override;
  ResultCode OnShutdown(PluginMessage* message) override;
  /// Also brings the published table up to date: after a reload the function may have moved.
  ResultCode SetCurrentPlugin(Plugin* plugin) override;

 private:
  ResultCode AddTesseraeSuite();
  ResultCode FreeSuiteFunctions();

  MosaicSuite* suiteFunctions = nullptr;  // owned block of "QP Blocks Suite", outlives an unload
};

static_assert(sizeof(TesseraeUI) == sizeof(Plugin) + sizeof(void*));

/// The plug-in from its start-up or reload, even if that fails to get the suites again, to its
/// shut-down or unload; null otherwise.
extern Plugin* currentPlugin;
