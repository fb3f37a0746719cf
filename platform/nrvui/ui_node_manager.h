#pragma once

#include <boost/any.hpp>
#include <map>
#include <string>

#include "platform/nrvcore/export.h"
#include "platform/nrvcore/string.h"

namespace nrvui::ui {

/// The platform settings, from key to a value of any type. Read by dialogs while they are built.
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

/// The toolkit's one manager, which lives as long as the process.
class NRV_EXPORT UI_NodeManager {
 public:
  /// `create` asks for it to be made; it always is, so both values answer the same.
  static UI_NodeManager& Get(bool create = false);

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
