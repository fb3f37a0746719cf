#pragma once

#include <boost/any.hpp>
#include <map>
#include <string>

#include "platform/nrvcore/export.h"
#include "platform/nrvcore/string.h"

namespace nrvui::ui {

/// The platform settings by key, with values of any type. Dialogs read them when they are
/// constructed.
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

/// The toolkit's singleton, which owns the platform settings. User-interface thread only.
class NRV_EXPORT UI_NodeManager {
 public:
  /// `create` has no effect: the manager always exists.
  static UI_NodeManager& Get(bool create = false);

  UI_NodeManager(const UI_NodeManager&) = delete;
  UI_NodeManager& operator=(const UI_NodeManager&) = delete;

  CustomSettingsManager& GetCustomSettingsManager() const;

 private:
  UI_NodeManager() = default;

  mutable CustomSettingsManager customSettings;
};

/// The theme of a dialog that requests none.
NRV_EXPORT nrvcore::UTF16String GetDefaultThemeName();

}  // namespace nrvui::ui
