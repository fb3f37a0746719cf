#pragma once

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace standin {

/// Owns the objects that stand behind handles; a handle is its object's address. A handle that
/// was never given, or was given back, is recognised as such and not followed, until its address is
/// given out again.
template <typename Object>
class HandleBook {
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

  /// In the order in which they were given out.
  const std::vector<std::unique_ptr<Object>>& Objects() const { return objects; }

 private:
  auto Find(const Object* handle) const {
    return std::find_if(objects.begin(), objects.end(),
                        [handle](const auto& object) { return object.get() == handle; });
  }

  std::vector<std::unique_ptr<Object>> objects;
};

}  // namespace standin
