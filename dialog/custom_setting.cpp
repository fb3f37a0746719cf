#include "dialog/custom_setting.h"

#include <boost/any.hpp>
#include <string>

#include "platform/nrvui/ui_node_manager.h"

bool GetCustomSetting(const nrvui::ui::CustomSettingsManager& manager, const char* key,
                      bool defaultValue) {
  const auto& settings = manager.GetSettings();
  const auto setting = settings.find(std::string(key));
  return setting == settings.end() ? defaultValue : boost::any_cast<bool>(setting->second);
}
