#pragma once

#include <boost/any.hpp>
#include <map>
#include <string>

#include "platform/nrvcore/export.h"
#include "platform/nrvcore/string.h"

namespace nrvui::ui {

/// The platform settings by key, with values of any type. Dialogs read them during construction.
class NRV_EXPORT CustomSettingsManager {
 public:
  CustomSettingsManager();
  CustomSettingsManager(const CustomSettingsManager&) = delete;
  CustomSettingsManager& operator=(const CustomSettingsManager&) = delete;
  ~CustomSettingsManager();

  const std::map<std::string, boost::any>& GetSettings() const { return settings; }
  void SetSetting(const std::string& key, const boost::any& value);

 private:
  std::map<std::string, boost::any> settings;
};

/// The toolkit's only manager.
class NRV_EXPORT UI_NodeManager {
 public:
  /// Never null: `create` has no effect, because the manager is always created.
  static UI_NodeManager& Get(bool create = false);

  UI_NodeManager(const UI_NodeManager&) = delete;
  UI_NodeManager& operator=(const UI_NodeManager&) = delete;

  CustomSettingsManager& GetCustomSettingsManager() const;

 private:
  UI_NodeManager();
  ~UI_NodeManager();

  mutable CustomSettingsManager customSettings;
};

/// The theme of layouts for which a dialog requests no other.
NRV_EXPORT nrvcore::UTF16String GetDefaultThemeName();

}  // namespace nrvui::ui
