#include "platform/nrvcore/localizer.h"

#include <gtest/gtest.h>

#include <clocale>

using nrvcore::config::Localizer;
using nrvcore::config::ReplacementValue;

TEST(Localizer, ShowsWhatFollowsTheFirstEqualSignOfAKeyWithoutTranslation) {
  Localizer& localizer = Localizer::Get();
  localizer.SetCatalogues(CATALOGUES);
  localizer.SetLanguage("de");
  EXPECT_EQ(localizer.Localize("$$$/nrvui/Gesture/Disabled=The control is disabled."),
            u"Das Steuerelement ist deaktiviert.");
  EXPECT_EQ(localizer.Localize("$$$/Test/Title=Tiles = 1"), u"Tiles = 1");
  EXPECT_EQ(localizer.Localize("$$$/Test/NoText"), u"$$$/Test/NoText");
  EXPECT_EQ(localizer.Localize("$$$/Test/Empty="), u"");
  EXPECT_EQ(localizer.Localize(""), u"") << "the catalogue's header is no text";
  EXPECT_EQ(localizer.Localize(nullptr), u"");
  localizer.SetLanguage("en");
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C") << "the process's locale is its own";
}

TEST(Localizer, PutsValuesInTheirPlacesOnce) {
  const ReplacementValue value(u"%2"), empty;
  const Localizer& localizer = Localizer::Get();
  const char* const key = "$$$/Test/Width=%1 is wide, %0 %2 is %3 %";
  EXPECT_EQ(localizer.Localize(key, {value, value, empty}), u"%2 is wide, %0 %2 is  %");
  EXPECT_EQ(localizer.Localize(key, {value}), u"%2 is wide, %0 %2 is %3 %");
}
