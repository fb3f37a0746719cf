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

/// Told of every change of a node, by code or by a person: value, bounds, unit, caption, enabled
/// and shown state, rectangle, place, children, a dialog's response. A presenter with real windows
/// mirrors nodes this way.
class NodeObserver {
 public:
  virtual void NodeChanged(UI_Node& node) = 0;
  /// Called by the node's destructor; only the address may be used. It may throw only for a node
  /// whose last release is a call of intrusive_ptr_release: children are released by smart
  /// pointers, whose destructors must not throw.
  virtual void NodeDestroyed(UI_Node&) {}

 protected:
  ~NodeObserver() = default;
};

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

/// Everything that a dialog is made of. Nodes are shared through boost::intrusive_ptr; a node holds
/// its children and knows its parent by a plain pointer, which is null once the parent is gone.
/// Counts change atomically, all else belongs to the user-interface thread.
class NRV_EXPORT UI_Node : public UI_Container {
 public:
  UI_Node();
  UI_Node(const UI_Node&) = delete;
  UI_Node& operator=(const UI_Node&) = delete;
  virtual ~UI_Node() noexcept(false);

  // What every lookup does at every node is inline here.
  const boost::intrusive_ptr<UI_Node>* ChildBegin() const final { return children.data(); }
  const boost::intrusive_ptr<UI_Node>* ChildEnd() const final {
    return children.data() + children.size();
  }
  void ChildPushBack(const boost::intrusive_ptr<UI_Node>& child) override;
  void ChildSwapOrder(unsigned long first, unsigned long second) override;

  virtual void UI_ActivationChanged(bool active);
  /// Told the node's new local rectangle, which is already in force.
  virtual void UI_ContentRectChanged(const nrvcore::geom::RectT<float>& rect);
  virtual void UI_DisabledStateChanged(bool disabled);

  nrvcore::String UI_GetNodeID() const { return nodeID; }
  void UI_SetNodeID(const nrvcore::String& id);

  UI_Container* UI_GetParentContainer() const;
  /// The place among the parent's children; throws std::logic_error for a node without parent.
  unsigned long UI_GetIndex() const;

  /// The node's size as a rectangle from (0, 0). A node has no place in its
  /// parent, since only presenters place what they draw: both values of `inParent` answer the same.
  nrvcore::geom::RectT<float> UI_GetLocalRectF(bool inParent = false) const;
  /// Takes the rectangle's width and height as the new size; what is not above 0 counts as 0,
  /// what is above a million points as that.
  /// A size that differs is told to UI_ContentRectChanged, then to the notify function.
  void UI_SetLocalRectF(const nrvcore::geom::RectT<float>& rect);
  void UI_InstallSizeChangedNotifyFunction(
      const boost::shared_ptr<boost::function<void()>>& notifyFunction);

  void UI_Show(bool show);
  bool UI_IsShown() const { return shown; }
  /// Shown, and so is everything above it.
  bool UI_IsVisible() const;

  /// At most one; it is not owned and must be taken away (null) before it goes.
  void UI_SetObserver(NodeObserver* nodeObserver);

  /// A modal run sees from it whether others still hold the dialog.
  std::int32_t UI_GetReferenceCount() const;
  /// For a node whose storage is not the heap's: no release destroys it then.
  void UI_KeepOnLastRelease(bool keep);

 protected:
  /// Tells the observer. To be called after every change that one could see.
  void UI_Changed();

 private:
  friend void intrusive_ptr_add_ref(const UI_Node* node) noexcept;
  friend void intrusive_ptr_release(const UI_Node* node);

  bool IsAtOrAbove(const UI_Node& other) const;

  // First what a lookup reads, so that it touches fewer cache lines.
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

/// The release that brings the count to zero destroys the node, unless a guard is set. It lets
/// through what a destruction throws, which boost::intrusive_ptr's destructor cannot do.
inline void intrusive_ptr_release(const UI_Node* node) {
  if (node->referenceCount.fetch_sub(1, std::memory_order_acq_rel) != 1) return;
  if (node->beingDestroyed || node->keptOnLastRelease) return;
  node->beingDestroyed = true;
  delete node;
}

/// Calls `visit` with every node of a class below `top`, parents before their children.
template <class Node, class Visit>
void ForEachBelow(const UI_Container& top, const Visit& visit) {
  for (const auto& child : Children(top)) {
    if (auto* node = dynamic_cast<Node*>(child.get())) visit(*node);
    ForEachBelow<Node>(*child, visit);
  }
}

}  // namespace nrvui::ui
