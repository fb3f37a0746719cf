#pragma once

#include "host/plugin.h"

/// What a plug-in built on this framework supplies, besides its list of suites (suite_set.h).

/// Creates the module's plug-in object in the host's memory; null when there is none.
Plugin* CreatePlugin(PluginRef pluginRef);

/// Makes the virtual operations of an object that was kept across an unload those of this, newly
/// loaded code again, without changing its members. Answers the object to go on with.
Plugin* RebindAfterReload(void* kept);
