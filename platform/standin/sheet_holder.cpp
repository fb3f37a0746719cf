#include "platform/standin/sheet_holder.h"

#include <algorithm>
#include <utility>

#include "platform/nrvui/node_walk.h"
#include "platform/nrvui/ui_control_view.h"
#include "platform/standin/host.h"

namespace standin {
namespace {

bool IsRefused(const char* operation) {
  return Failed(Host::Current().Operations().CheckIn(operation));
}

nrvcore::geom::PointT<float> SizeOf(const nrvui::ui::UI_Node& node) {
  const auto rect = node.UI_GetLocalRectF(false);
  return {rect.right, rect.bottom};
}

}  // namespace

LayoutSheetHolder::LayoutSheetHolder(SheetTree newTree, boost::shared_ptr<PropertySheet> newSheet,
                                     LiveToken newToken)
    : tree(std::move(newTree)),
      sheet(std::move(newSheet)),
      token(std::move(newToken)),
      natural(SizeOf(*tree.layout)),
      given(natural) {}

LayoutSheetHolder::~LayoutSheetHolder() {
  tree.layout->UI_InstallSizeChangedNotifyFunction({});
  nrvui::ui::ForEachBelow<nrvui::controls::UI_ControlView>(
      *tree.layout, [](auto& control) { control.NotifyWhenChanged({}); });
}

boost::intrusive_ptr<nrvui::ui::UI_Node> LayoutSheetHolder::GetSheetView() {
  if (IsRefused("Sheet Holder/GetSheetView")) return nullptr;
  return tree.view;
}

boost::intrusive_ptr<nrvui::ui::UI_Node> LayoutSheetHolder::GetLayoutNode() {
  if (IsRefused("Sheet Holder/GetLayoutNode")) return nullptr;
  return tree.layout;
}

boost::shared_ptr<VXUICairnSheet> LayoutSheetHolder::GetSheet() {
  if (IsRefused("Sheet Holder/GetSheet")) return nullptr;
  return sheet;
}

boost::intrusive_ptr<nrvui::ui::UI_Node> LayoutSheetHolder::GetInitialFocus() {
  if (IsRefused("Sheet Holder/GetInitialFocus")) return nullptr;
  return tree.initialFocus;
}

void LayoutSheetHolder::ResizeSheet(std::int32_t width, std::int32_t height) {
  if (IsRefused("Sheet Holder/ResizeSheet")) return;
  const auto current = SizeOf(*tree.layout);
  if (!(current == given)) natural = current;
  given = {std::max(natural.x, static_cast<float>(width)),
           std::max(natural.y, static_cast<float>(height))};
  // The dialog follows the layout and comes back here; it ends when nothing changes any more.
  tree.layout->UI_SetLocalRectF({0, 0, given.x, given.y});
}

void LayoutSheetHolder::SetMessageCallback(
    boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>> callback) {
  if (IsRefused("Sheet Holder/SetMessageCallback")) return;
  messageCallback = std::move(callback);
}

}  // namespace standin
