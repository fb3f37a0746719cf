#include <string_view>

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
  const auto is = [selector](std::string_view name) { return selector == name; };
  if (is("Startup")) message->globals = &messagesSinceLoad;
  if (is("Shutdown")) message->globals = nullptr;
  if (is("Count")) return ResultCode{messagesSinceLoad};
  if (is("Type")) {
    const std::string_view type = static_cast<NotifierMessage*>(message)->notifierType;
    return type == "type" ? ResultCode::kSuccess : ResultCode::kParameter;
  }
  return ResultCode::kSuccess;
}
