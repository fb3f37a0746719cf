#include "dialog/custom_setting.h"

#include <gtest/gtest.h>

#include <boost/any.hpp>

#include "platform/nrvui/custom_settings_manager.h"

namespace {

TEST(GetCustomSetting, TakesABooleanAndNothingElse) {
  nrvui::ui::CustomSettingsManager manager;
  EXPECT_TRUE(GetCustomSetting(manager, "key", true));
  EXPECT_FALSE(GetCustomSetting(manager, "key", false));
  manager.SetSetting("key", true);
  EXPECT_TRUE(GetCustomSetting(manager, "key", false));
  manager.SetSetting("key", false);
  EXPECT_FALSE(GetCustomSetting(manager, "key", true));
  manager.SetSetting("key", 1);
  EXPECT_THROW(GetCustomSetting(manager, "key", false), boost::bad_any_cast);
  manager.SetSetting("key", boost::any());
  EXPECT_THROW(GetCustomSetting(manager, "key", false), boost::bad_any_cast);
}

}  // namespace
