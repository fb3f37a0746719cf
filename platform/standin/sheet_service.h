#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/nrvui/ui_dialog.h"
#include "platform/standin/layout_reader.h"
#include "platform/vxui/host_interfaces.h"

namespace standin {

class Host;

/// The host's user-interface objects: the sheet factory, which builds sheets from the files
/// "<number>.xml" of a folder, and the drawing supplier source. Main thread only.
class SheetService final : public SheetFactory, public DrawingSupplierSource {
 public:
  SheetService(Host& owner, std::filesystem::path layoutFolder);

  /// Reads the file each time. If it cannot be used, returns null and adds the reason to the host's
  /// resource problems.
  boost::shared_ptr<SheetHolder> CreateSheetHolder(OpaqueModule* pluginRef,
                                                   std::uint32_t resourceID,
                                                   const nrvcore::UTF16String& theme) override;
  void RegisterDialogView(nrvui::ui::OS_View* rootView) override;
  const nrvui::drawbot::SupplierInterface* GetDrawingSupplier() override;

  /// A line for each kind of sheet objects of which some still exist.
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
