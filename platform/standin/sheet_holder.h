#pragma once

#include "platform/standin/layout_reader.h"
#include "platform/standin/live_token.h"
#include "platform/vxui/sheet_holder.h"

namespace standin {

/// The property sheet of a layout. Dialogs hold it and ask nothing of it.
class PropertySheet final : public VXUICairnSheet {
 public:
  explicit PropertySheet(LiveToken sheetToken) : token(std::move(sheetToken)) {}

 private:
  LiveToken token;
};

/// A layout that was read. Callbacks that its dialog installed go with it, also when
/// somebody still holds a node.
class LayoutSheetHolder final : public SheetHolder {
 public:
  LayoutSheetHolder(SheetTree tree, boost::shared_ptr<PropertySheet> sheet, LiveToken token);
  ~LayoutSheetHolder();

  boost::intrusive_ptr<nrvui::ui::UI_Node> GetSheetView() override;
  boost::intrusive_ptr<nrvui::ui::UI_Node> GetLayoutNode() override;
  boost::shared_ptr<VXUICairnSheet> GetSheet() override;
  boost::intrusive_ptr<nrvui::ui::UI_Node> GetInitialFocus() override;
  /// The layout takes the room, but not less than its content needs: the size that its file gives,
  /// or that a presenter has since given to its node.
  void ResizeSheet(std::int32_t width, std::int32_t height) override;
  void SetMessageCallback(
      boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>> callback) override;

 private:
  SheetTree tree;
  boost::shared_ptr<PropertySheet> sheet;
  LiveToken token;
  nrvcore::geom::PointT<float> natural;
  nrvcore::geom::PointT<float> given;  // by the last ResizeSheet
  boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>> messageCallback;
};

}  // namespace standin
