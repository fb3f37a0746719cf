// A module that fails each check of its file: it exports another symbol, uses the memory and
// strings of the C++ library, runs functions when it is loaded and when a thread ends, and stays
// loaded.

#include <memory>
#include <string>

#include "host/plugin_main.h"

__attribute__((visibility("default"))) std::string exported(100, ' ');

ResultCode PluginMain(const char*, const char*, PluginMessage*) {
  thread_local const auto text = std::make_unique<std::string>();
  text->append(exported);
  return ResultCode::kSuccess;
}
