#include "platform/standin/sheet_service.h"

#include <boost/smart_ptr/make_shared.hpp>
#include <utility>

#include "platform/standin/host.h"
#include "platform/standin/layout_reader.h"
#include "platform/standin/resource_error.h"
#include "platform/standin/sheet_holder.h"

namespace standin {

SheetService::SheetService(Host& owner, std::filesystem::path root)
    : host(owner), resources(std::move(root)) {}

boost::shared_ptr<SheetHolder> SheetService::CreateSheetHolder(OpaqueModule* pluginRef,
                                                               std::uint32_t resourceID,
                                                               const nrvcore::UTF16String&) {
  if (Failed(host.Operations().CheckIn("Sheet Factory/CreateSheetHolder"))) return nullptr;
  const std::string layout = std::to_string(resourceID);
  if (!host.Objects().IsPlugin(pluginRef)) {
    host.NoteResourceProblem("layout " + layout + " was asked for by an unknown plug-in");
    return nullptr;
  }
  try {
    return boost::make_shared<LayoutSheetHolder>(
        ReadLayout(resources / "layouts" / (layout + ".xml"), nodes),
        boost::make_shared<PropertySheet>(sheets), holders);
  } catch (const ResourceError& error) {
    host.NoteResourceProblem(error.what());
    return nullptr;
  }
}

void SheetService::RegisterDialogView(nrvui::ui::OS_View*) {
  static_cast<void>(host.Operations().CheckIn("Sheet Factory/RegisterDialogView"));
}

const nrvui::drawbot::SupplierInterface* SheetService::GetDrawingSupplier() {
  if (Failed(host.Operations().CheckIn("Drawing Supplier Source/GetDrawingSupplier")))
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
