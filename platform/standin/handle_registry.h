#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace standin {

/// Owns the objects behind handles; a handle is its object's address. Handles are compared, not
/// dereferenced, so an unknown or released one is recognised until its address is reused.
template <typename Object>
class HandleRegistry {
 public:
  Object* Add(Object object) {
    objects.push_back(std::make_unique<Object>(std::move(object)));
    return objects.back().get();
  }

  bool Holds(const Object* handle) const { return Find(handle) != objects.end(); }

  /// False when the handle is unknown.
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

}  // namespace standin
