#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <span>

namespace nrvui::ui {

class UI_Node;

/// An ordered, contiguous sequence of child nodes, each held by a reference. Leaves have none.
class UI_Container {
 public:
  /// Both are valid until the children change.
  virtual const boost::intrusive_ptr<UI_Node>* ChildBegin() const = 0;
  virtual const boost::intrusive_ptr<UI_Node>* ChildEnd() const = 0;
  /// Appends a child, taking it out of its former parent. Throws std::invalid_argument for null
  /// and for a node that is this one or above it.
  virtual void ChildPushBack(const boost::intrusive_ptr<UI_Node>& child) = 0;
  /// Exchanges the children at two positions; throws std::out_of_range when one doesn't exist.
  virtual void ChildSwapOrder(unsigned long first, unsigned long second) = 0;

 protected:
  ~UI_Container() = default;
};

inline std::span<const boost::intrusive_ptr<UI_Node>> Children(const UI_Container& container) {
  return {container.ChildBegin(), container.ChildEnd()};
}

}  // namespace nrvui::ui
