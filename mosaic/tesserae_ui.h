#pragma once

#include "host/plugin.h"
#include "mosaic/mosaic_suite.h"

/// The module's plug-in object. At the start-up it publishes the suite with the function
/// RunMosaicDialog, through which callers open the mosaic dialog. The framework handles all other
/// messages. Main thread only.
class TesseraeUI : public Plugin {
 public:
  explicit TesseraeUI(PluginRef pluginRef);
  /// Only for RebindAfterReload.
  TesseraeUI(const TesseraeUI&) = default;

  ResultCode OnStartup(PluginMessage* message) override;
  ResultCode OnShutdown(PluginMessage* message) override;
  /// Also writes the published table again, since a reload may move the function.
  ResultCode SetCurrentPlugin(Plugin* plugin) override;

 private:
  /// Publishes the suite. Returns the host's code, or kParameter if the table cannot be allocated
  /// or the host throws.
  ResultCode AddTesseraeSuite();
  /// Frees the published table. Returns the host's code.
  ResultCode FreeSuiteFunctions();

  // Owned, a block of "QP Blocks Suite"; null before the start-up. Survives an unload.
  MosaicSuite* suiteFunctions = nullptr;
};

static_assert(sizeof(TesseraeUI) == sizeof(Plugin) + sizeof(void*));

/// The plug-in object between its start-up or reload and its unload or shut-down; null otherwise.
/// It is also set after a reload that failed to acquire the suites.
extern Plugin* currentPlugin;
