// Does nothing wrong but what its file shows: an image that exports too much, has memory and
// strings that are not its own, work for the end of a thread and for its loading, and stays in the
// process.

#include <memory>
#include <string>

#include "host/plugin_main.h"

__attribute__((visibility("default"))) std::string exported(100, ' ');

ResultCode PluginMain(const char*, const char*, PluginMessage*) {
  thread_local const auto text = std::make_unique<std::string>();
  text->append(exported);
  return ResultCode::kSuccess;
}
