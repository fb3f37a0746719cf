#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/nrvui/ui_dialog.h"
#include "platform/standin/live_token.h"
#include "platform/vxui/host_interfaces.h"

namespace standin {

class Host;

/// The host's user-interface objects: builds sheets from "<number>.xml" in the folder of layouts
/// and provides the drawing supplier. The host owns it.
class SheetService final : public SheetFactory, public DrawingSupplierSource {
 public:
  SheetService(Host& owner, std::filesystem::path layoutFolder);

  /// Reads the file each time. Null when it cannot be used; the host's resource problems then have
  /// the reason.
  boost::shared_ptr<SheetHolder> CreateSheetHolder(OpaqueModule* pluginRef,
                                                   std::uint32_t resourceID,
                                                   const nrvcore::UTF16String& theme) override;
  void RegisterDialogView(nrvui::ui::OS_View* rootView) override;
  const nrvui::drawbot::SupplierInterface* GetDrawingSupplier() override;

  /// A line for each kind of sheet object that still exists.
  std::vector<std::string> Leftovers() const;

 private:
  Host& host;
  std::filesystem::path layouts;
  nrvui::drawbot::SupplierInterface supplier;
  LiveToken holders = MakeLiveToken();
  LiveToken sheets = MakeLiveToken();
  LiveToken nodes = MakeLiveToken();
};

}  // namespace standin
