#include <cstring>

#include "platform/suites/plugin_message.h"
#include "platform/suites/result_code.h"

namespace {

int messagesSinceLoad = 0;

}  // namespace

/// Runs from "Startup" to "Shutdown"; "Count" answers how many messages came since it was loaded,
/// "Type" whether the notifier's type arrived.
extern "C" __attribute__((visibility("default"))) ResultCode PluginMain(const char*,
                                                                        const char* selector,
                                                                        PluginMessage* message) {
  ++messagesSinceLoad;
  const auto is = [selector](const char* name) { return std::strcmp(selector, name) == 0; };
  if (is("Startup")) message->globals = &messagesSinceLoad;
  if (is("Shutdown")) message->globals = nullptr;
  if (is("Count")) return ResultCode{messagesSinceLoad};
  if (is("Type"))
    return ResultCode{std::strcmp(static_cast<NotifierMessage*>(message)->notifierType, "type")};
  return ResultCode::kSuccess;
}
