#pragma once

namespace nrvui::ui {
class CustomSettingsManager;
}

/// A Boolean platform setting, or `defaultValue` when nobody has set it. Throws
/// boost::bad_any_cast when the setting is not a Boolean.
bool GetCustomSetting(const nrvui::ui::CustomSettingsManager& manager, const char* key,
                      bool defaultValue);
