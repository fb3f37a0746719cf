#pragma once

#include "host/error.h"
#include "host/suites.h"

/// The host works on behalf of this plug-in for as long as the scope is open. Without the host's
/// context suite the scope does nothing; what the host answers is not looked at.
class AppContextScope {
 public:
  explicit AppContextScope(PluginRef plugin) {
    if (const auto* contexts = Suite<VXContextSuite>()) {
      (void)contexts->PushAppContext(plugin, &context);
    }
  }
  ~AppContextScope() {
    if (const auto* contexts = Suite<VXContextSuite>()) {
      (void)Guarded([&] { return contexts->PopAppContext(context); });
    }
  }
  AppContextScope(const AppContextScope&) = delete;
  AppContextScope& operator=(const AppContextScope&) = delete;

 private:
  ContextHandle context = nullptr;
};
