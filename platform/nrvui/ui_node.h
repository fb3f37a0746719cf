#pragma once

#include <atomic>
#include <boost/function.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/nrvcore/geometry.h"
#include "platform/nrvcore/string.h"

namespace nrvui::ui {

class UI_Node;

/// Receives every change of a node, whether by code or by the user: value, bounds, unit, caption,
/// enabled and shown state, size, children, a dialog's placement and response. Presenters with real
/// windows observe nodes to show them.
class NodeObserver {
 public:
  virtual void NodeChanged(UI_Node& node) = 0;
  /// Called by the node's destructor; use only the node's address. It may throw only if a direct
  /// call of intrusive_ptr_release destroys the node: a parent releases its children through smart
  /// pointers, whose destructors must not throw.
  virtual void NodeDestroyed(UI_Node&) {}

 protected:
  ~NodeObserver() = default;
};

/// An ordered, contiguous sequence of child nodes, each held by a reference. A leaf's is empty.
class UI_Container {
 public:
  /// The pointers are valid until the children change.
  virtual const boost::intrusive_ptr<UI_Node>* ChildBegin() const = 0;
  virtual const boost::intrusive_ptr<UI_Node>* ChildEnd() const = 0;
  /// Appends a child and removes it from its previous parent. Throws std::invalid_argument for
  /// null, for this node and for its ancestors.
  virtual void ChildPushBack(const boost::intrusive_ptr<UI_Node>& child) = 0;
  /// Exchanges the children at two positions, counted from 0. Throws std::out_of_range for a
  /// position without a child.
  virtual void ChildSwapOrder(unsigned long first, unsigned long second) = 0;

 protected:
  ~UI_Container() = default;
};

inline std::span<const boost::intrusive_ptr<UI_Node>> Children(const UI_Container& container) {
  return {container.ChildBegin(), container.ChildEnd()};
}

/// The base of views, controls and dialogs. Nodes are shared through boost::intrusive_ptr. A node
/// holds references to its children and a plain pointer to its parent, which becomes null when the
/// parent is destroyed. Reference counts are atomic; everything else belongs to the user-interface
/// thread.
class NRV_EXPORT UI_Node : public UI_Container {
 public:
  UI_Node();
  UI_Node(const UI_Node&) = delete;
  UI_Node& operator=(const UI_Node&) = delete;
  virtual ~UI_Node() noexcept(false);

  // Final and inline, because lookups call them for every node.
  const boost::intrusive_ptr<UI_Node>* ChildBegin() const final { return children.data(); }
  const boost::intrusive_ptr<UI_Node>* ChildEnd() const final {
    return children.data() + children.size();
  }
  void ChildPushBack(const boost::intrusive_ptr<UI_Node>& child) override;
  void ChildSwapOrder(unsigned long first, unsigned long second) override;

  virtual void UI_ActivationChanged(bool active);
  /// Called after the local rectangle has changed.
  virtual void UI_ContentRectChanged(const nrvcore::geom::RectT<float>& rect);
  virtual void UI_DisabledStateChanged(bool disabled);

  nrvcore::String UI_GetNodeID() const { return nodeID; }
  void UI_SetNodeID(const nrvcore::String& id);

  UI_Container* UI_GetParentContainer() const;
  /// The position among the parent's children, from 0. Throws std::logic_error for a node without
  /// a parent.
  unsigned long UI_GetIndex() const;

  /// The node's size as a rectangle at (0, 0), in points. `inParent` has no effect, because only
  /// presenters position nodes.
  nrvcore::geom::RectT<float> UI_GetLocalRectF(bool inParent = false) const;
  /// Sets the size to the rectangle's width and height, clamped to 0 to 1,000,000 points. If the
  /// size differs, calls UI_ContentRectChanged and then the notify function.
  void UI_SetLocalRectF(const nrvcore::geom::RectT<float>& rect);
  /// Replaces the notify function; null removes it.
  void UI_InstallSizeChangedNotifyFunction(
      const boost::shared_ptr<boost::function<void()>>& notifyFunction);

  void UI_Show(bool show);
  bool UI_IsShown() const { return shown; }
  /// Whether the node and all its ancestors are shown.
  bool UI_IsVisible() const;

  /// Replaces the observer, which the node does not own; null removes it. Remove it before its
  /// destruction.
  void UI_SetObserver(NodeObserver* nodeObserver);

  std::int32_t UI_GetReferenceCount() const;
  /// Protects a node on the stack: its last release does not delete it.
  void UI_KeepOnLastRelease(bool keep);

 protected:
  /// Notifies the observer. Derived classes call it after every visible change.
  void UI_Changed();

  /// Sets a member of a derived class and notifies the observer.
  template <class Value>
  void UI_SetMember(Value& member, const Value& value) {
    member = value;
    UI_Changed();
  }

 private:
  friend void intrusive_ptr_add_ref(const UI_Node* node) noexcept;
  friend void intrusive_ptr_release(const UI_Node* node);

  bool IsAtOrAbove(const UI_Node& other) const;

  // The members that lookups read come first, so that they share a cache line.
  mutable std::atomic<std::int32_t> referenceCount{0};
  mutable bool beingDestroyed = false;
  bool keptOnLastRelease = false;
  bool shown = true;
  std::vector<boost::intrusive_ptr<UI_Node>> children;
  nrvcore::String nodeID;
  UI_Node* parent = nullptr;
  NodeObserver* observer = nullptr;
  nrvcore::geom::PointT<float> size;
  boost::shared_ptr<boost::function<void()>> sizeChanged;
};

inline void intrusive_ptr_add_ref(const UI_Node* node) noexcept {
  node->referenceCount.fetch_add(1, std::memory_order_relaxed);
}

/// Deletes the node when the count becomes 0, unless it is kept. An exception of its destructor
/// reaches a direct caller; in the destructor of boost::intrusive_ptr it ends the process.
inline void intrusive_ptr_release(const UI_Node* node) {
  if (node->referenceCount.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
  if (node->beingDestroyed || node->keptOnLastRelease) return;
  node->beingDestroyed = true;
  delete node;
}

/// Calls `visit` with every descendant of `top` that is a `Node`, parents before their children.
template <class Node, class Visit>
void ForEachBelow(const UI_Container& top, const Visit& visit) {
  for (const auto& child : Children(top)) {
    if (auto* node = dynamic_cast<Node*>(child.get())) visit(*node);
    ForEachBelow<Node>(*child, visit);
  }
}

}  // namespace nrvui::ui
