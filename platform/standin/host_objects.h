#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/suites/host_suites.h"

// The objects behind the handles of the host's suites.

/// A plug-in, or the host's own module of texts.
struct OpaqueModule {
  std::string fileName;
  std::string name{};       // set by SetPluginName; empty before
  bool isHost = false;      // the host's own module, which has string lists but no code
  bool isUnloaded = false;  // its code is not in memory, so its suites cannot be acquired
  bool isRemoved = false;   // the object remains, so that no other plug-in gets its reference
};

struct OpaqueAccess {
  PluginRef plugin;
};

struct OpaqueContext {
  PluginRef plugin;
};

struct OpaqueNotifier {
  PluginRef plugin;
  std::string name;
  std::string type;
};

struct OpaqueString {
  std::string text;  // UTF-8
};

namespace standin {

/// Owns the objects of one type of handles. A handle is the address of its object. It is compared
/// before use, so unknown and released handles are recognised, until their addresses are reused.
template <typename Object>
class HandleRegistry {
 public:
  Object* Add(Object object) {
    objects.push_back(std::make_unique<Object>(std::move(object)));
    return objects.back().get();
  }

  bool Holds(const Object* handle) const { return Find(handle) != objects.end(); }

  /// Returns false for an unknown handle.
  bool Remove(const Object* handle) {
    const auto found = Find(handle);
    if (found == objects.end()) return false;
    objects.erase(found);
    return true;
  }

  template <typename Condition>
  void RemoveIf(Condition condition) {
    std::erase_if(objects, [&](const auto& object) { return condition(*object); });
  }

  /// In the order of Add.
  const std::vector<std::unique_ptr<Object>>& Objects() const { return objects; }

 private:
  auto Find(const Object* handle) const {
    return std::find_if(objects.begin(), objects.end(),
                        [handle](const auto& object) { return object.get() == handle; });
  }

  std::vector<std::unique_ptr<Object>> objects;
};

struct HostObjects {
  HandleRegistry<OpaqueModule> modules;
  HandleRegistry<OpaqueAccess> accesses;
  HandleRegistry<OpaqueContext> contexts;
  HandleRegistry<OpaqueNotifier> notifiers;
  HandleRegistry<OpaqueString> strings;

  bool IsModule(ModuleRef module) const { return modules.Holds(module) && !module->isRemoved; }
  bool IsPlugin(PluginRef plugin) const { return IsModule(plugin) && !plugin->isHost; }
};

}  // namespace standin
