#include "platform/standin/sheet_service.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <utility>

#include "platform/nrvcore/file.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/standin/host.h"

namespace standin {

namespace {

template <OperationName kName>
bool IsRefused() {
  return Failed(Host::Current().Operations().CheckIn<kName>());
}

nrvcore::geom::PointT<float> SizeOf(const nrvui::ui::UI_Node& node) {
  const auto rect = node.UI_GetLocalRectF();
  return {rect.right, rect.bottom};
}

class PropertySheet final : public VXUICairnSheet {
 public:
  explicit PropertySheet(LiveToken sheetToken) : token(std::move(sheetToken)) {}

 private:
  LiveToken token;
};

/// A layout. Its destructor removes the callbacks that the dialog has installed in its nodes,
/// because nodes may outlive the dialog.
class LayoutSheetHolder final : public SheetHolder {
 public:
  LayoutSheetHolder(SheetTree newTree, boost::shared_ptr<PropertySheet> newSheet,
                    LiveToken newToken)
      : tree(std::move(newTree)),
        sheet(std::move(newSheet)),
        token(std::move(newToken)),
        natural(SizeOf(*tree.layout)),
        given(natural) {}

  ~LayoutSheetHolder() {
    tree.layout->UI_InstallSizeChangedNotifyFunction({});
    nrvui::ui::ForEachBelow<nrvui::controls::UI_ControlView>(
        *tree.layout, [](auto& control) { control.NotifyWhenChanged({}); });
  }

  boost::intrusive_ptr<nrvui::ui::UI_Node> GetSheetView() override {
    return IsRefused<"Sheet Holder/GetSheetView">() ? nullptr : tree.view;
  }
  boost::intrusive_ptr<nrvui::ui::UI_Node> GetLayoutNode() override {
    return IsRefused<"Sheet Holder/GetLayoutNode">() ? nullptr : tree.layout;
  }
  boost::shared_ptr<VXUICairnSheet> GetSheet() override {
    return IsRefused<"Sheet Holder/GetSheet">() ? nullptr : sheet;
  }
  boost::intrusive_ptr<nrvui::ui::UI_Node> GetInitialFocus() override {
    return IsRefused<"Sheet Holder/GetInitialFocus">() ? nullptr : tree.initialFocus;
  }

  /// Gives the layout this size, but at least its natural size: the size in its file, or the size
  /// that a presenter has set since.
  void ResizeSheet(std::int32_t width, std::int32_t height) override {
    if (IsRefused<"Sheet Holder/ResizeSheet">()) return;
    const auto current = SizeOf(*tree.layout);
    if (!(current == given)) natural = current;
    given = {std::max(natural.x, static_cast<float>(width)),
             std::max(natural.y, static_cast<float>(height))};
    // The dialog adapts its size to the layout and calls this again until the size stays the same.
    tree.layout->UI_SetLocalRectF({0, 0, given.x, given.y});
  }

  /// These sheets send no messages.
  void SetMessageCallback(
      boost::shared_ptr<boost::function<void(const vx::UnicodeString&)>>) override {
    static_cast<void>(IsRefused<"Sheet Holder/SetMessageCallback">());
  }

 private:
  SheetTree tree;
  boost::shared_ptr<PropertySheet> sheet;
  LiveToken token;
  nrvcore::geom::PointT<float> natural;
  nrvcore::geom::PointT<float> given;  // the size that the last ResizeSheet set
};

}  // namespace

SheetService::SheetService(Host& owner, std::filesystem::path layoutFolder)
    : host(owner), layouts(std::move(layoutFolder)) {}

boost::shared_ptr<SheetHolder> SheetService::CreateSheetHolder(OpaqueModule* pluginRef,
                                                               std::uint32_t resourceID,
                                                               const nrvcore::UTF16String&) {
  if (Failed(host.Operations().CheckIn<"Sheet Factory/CreateSheetHolder">())) return nullptr;
  const std::string layout = std::to_string(resourceID);
  if (!host.Objects().IsPlugin(pluginRef)) {
    host.AddResourceProblem("layout " + layout + " was requested by an unknown plug-in");
    return nullptr;
  }
  try {
    return boost::make_shared<LayoutSheetHolder>(ReadLayout(layouts / (layout + ".xml"), nodes),
                                                 boost::make_shared<PropertySheet>(sheets),
                                                 holders);
  } catch (const nrvcore::FileError& error) {
    host.AddResourceProblem(error.what());
    return nullptr;
  }
}

void SheetService::RegisterDialogView(nrvui::ui::OS_View*) {
  static_cast<void>(host.Operations().CheckIn<"Sheet Factory/RegisterDialogView">());
}

const nrvui::drawbot::SupplierInterface* SheetService::GetDrawingSupplier() {
  if (Failed(host.Operations().CheckIn<"Drawing Supplier Source/GetDrawingSupplier">()))
    return nullptr;
  return &supplier;
}

std::vector<std::string> SheetService::Leftovers() const {
  const struct {
    const LiveToken& token;
    const char* what;
  } kinds[] = {{holders, "sheet holders"}, {sheets, "sheets"}, {nodes, "nodes of sheets"}};
  std::vector<std::string> lines;
  for (const auto& kind : kinds)
    if (const long live = CountLive(kind.token))
      lines.push_back(std::to_string(live) + " " + kind.what + " are alive");
  return lines;
}

}  // namespace standin
