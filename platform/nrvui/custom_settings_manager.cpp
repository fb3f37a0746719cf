#include "platform/nrvui/custom_settings_manager.h"

namespace nrvui::ui {

CustomSettingsManager::CustomSettingsManager() = default;
CustomSettingsManager::~CustomSettingsManager() = default;

const std::map<std::string, boost::any>& CustomSettingsManager::GetSettings() const {
  return settings;
}

void CustomSettingsManager::SetSetting(const std::string& key, const boost::any& value) {
  settings[key] = value;
}

}  // namespace nrvui::ui
