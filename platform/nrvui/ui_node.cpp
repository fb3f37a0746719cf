#include "platform/nrvui/ui_node.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace nrvui::ui {

namespace {

nrvcore::geom::PointT<float> SizeOf(const nrvcore::geom::RectT<float>& rect) {
  return {nrvcore::geom::ClampLength(rect.Width(), 0),
          nrvcore::geom::ClampLength(rect.Height(), 0)};
}

}  // namespace

UI_Node::UI_Node() = default;

UI_Node::~UI_Node() noexcept(false) {
  for (const auto& child : children) child->parent = nullptr;
  if (observer != nullptr) observer->NodeDestroyed(*this);
}

void UI_Node::ChildPushBack(const boost::intrusive_ptr<UI_Node>& child) {
  if (child == nullptr) throw std::invalid_argument("a child is null");
  if (child->IsAtOrAbove(*this)) throw std::invalid_argument("a node would contain itself");
  // A copy, because `child` may refer to an element that is erased below.
  boost::intrusive_ptr<UI_Node> added = child;
  UI_Node* const oldParent = added->parent;
  children.emplace_back();  // may throw, so it precedes all changes
  if (oldParent != nullptr) std::erase(oldParent->children, added);
  added->parent = this;
  children.back() = std::move(added);
  if (oldParent != nullptr && oldParent != this) oldParent->UI_Changed();
  UI_Changed();
}

void UI_Node::ChildSwapOrder(unsigned long first, unsigned long second) {
  std::swap(children.at(first), children.at(second));
  UI_Changed();
}

bool UI_Node::IsAtOrAbove(const UI_Node& other) const {
  for (const UI_Node* node = &other; node != nullptr; node = node->parent) {
    if (node == this) return true;
  }
  return false;
}

void UI_Node::UI_ActivationChanged(bool) {}
void UI_Node::UI_ContentRectChanged(const nrvcore::geom::RectT<float>&) {}
void UI_Node::UI_DisabledStateChanged(bool) {}

void UI_Node::UI_SetNodeID(const nrvcore::String& id) {
  nodeID = id;
}

UI_Container* UI_Node::UI_GetParentContainer() const {
  return parent;
}

unsigned long UI_Node::UI_GetIndex() const {
  if (parent == nullptr) throw std::logic_error("a node without parent has no index");
  const auto& siblings = parent->children;
  return std::find(siblings.begin(), siblings.end(), this) - siblings.begin();
}

nrvcore::geom::RectT<float> UI_Node::UI_GetLocalRectF(bool) const {
  return {0, 0, size.x, size.y};
}

void UI_Node::UI_SetLocalRectF(const nrvcore::geom::RectT<float>& rect) {
  const nrvcore::geom::PointT<float> newSize = SizeOf(rect);
  if (newSize == size) return;
  size = newSize;
  UI_ContentRectChanged(UI_GetLocalRectF());
  if (const auto notify = sizeChanged) (*notify)();
  UI_Changed();
}

void UI_Node::UI_InstallSizeChangedNotifyFunction(
    const boost::shared_ptr<boost::function<void()>>& notifyFunction) {
  sizeChanged = notifyFunction;
}

void UI_Node::UI_Show(bool show) {
  if (show == shown) return;
  shown = show;
  UI_Changed();
}

bool UI_Node::UI_IsVisible() const {
  for (const UI_Node* node = this; node != nullptr; node = node->parent) {
    if (!node->shown) return false;
  }
  return true;
}

void UI_Node::UI_SetObserver(NodeObserver* nodeObserver) {
  observer = nodeObserver;
}

std::int32_t UI_Node::UI_GetReferenceCount() const {
  return referenceCount.load(std::memory_order_relaxed);
}

void UI_Node::UI_KeepOnLastRelease(bool keep) {
  keptOnLastRelease = keep;
}

void UI_Node::UI_Changed() {
  if (observer != nullptr) observer->NodeChanged(*this);
}

}  // namespace nrvui::ui
