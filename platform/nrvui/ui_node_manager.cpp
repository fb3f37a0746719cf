#include "platform/nrvui/ui_node_manager.h"

namespace nrvui::ui {

CustomSettingsManager::CustomSettingsManager() = default;
CustomSettingsManager::~CustomSettingsManager() = default;

void CustomSettingsManager::SetSetting(const std::string& key, const boost::any& value) {
  settings[key] = value;
}

UI_NodeManager& UI_NodeManager::Get(bool) {
  static UI_NodeManager manager;
  return manager;
}

CustomSettingsManager& UI_NodeManager::GetCustomSettingsManager() const {
  return customSettings;
}

nrvcore::UTF16String GetDefaultThemeName() {
  return u"Standard";
}

}  // namespace nrvui::ui
