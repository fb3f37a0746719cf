#pragma once

#include <boost/any.hpp>
#include <map>
#include <string>

#include "platform/nrvcore/export.h"

namespace nrvui::ui {

/// The platform settings, from key to a value of any type. Read by dialogs while they are built.
class NRV_EXPORT CustomSettingsManager {
 public:
  CustomSettingsManager();
  CustomSettingsManager(const CustomSettingsManager&) = delete;
  CustomSettingsManager& operator=(const CustomSettingsManager&) = delete;
  ~CustomSettingsManager();

  const std::map<std::string, boost::any>& GetSettings() const;
  void SetSetting(const std::string& key, const boost::any& value);

 private:
  std::map<std::string, boost::any> settings;
};

}  // namespace nrvui::ui
