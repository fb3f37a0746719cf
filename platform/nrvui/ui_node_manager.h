#pragma once

#include "platform/nrvcore/string.h"
#include "platform/nrvui/custom_settings_manager.h"

namespace nrvui::ui {

/// The toolkit's one manager, which lives as long as the process.
class NRV_EXPORT UI_NodeManager {
 public:
  /// `create` asks for it to be made; it always is, so both values answer the same.
  static UI_NodeManager& Get(bool create);

  UI_NodeManager(const UI_NodeManager&) = delete;
  UI_NodeManager& operator=(const UI_NodeManager&) = delete;

  CustomSettingsManager& GetCustomSettingsManager() const;

 private:
  UI_NodeManager();
  ~UI_NodeManager();

  mutable CustomSettingsManager customSettings;
};

/// The theme in which layouts are built unless a dialog asks for another.
NRV_EXPORT nrvcore::UTF16String GetDefaultThemeName();

}  // namespace nrvui::ui
