#include "platform/nrvcore/localizer.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

using nrvcore::config::Localizer;
using nrvcore::config::ReplacementValue;

constexpr const char* kKey = "$$$/nrvui/Gesture/Disabled=The control is disabled.";
constexpr const char16_t* kEnglish = u"The control is disabled.";

TEST(Localizer, ShowsTheTranslationOrElseTheTextAfterTheKeysEqualSign) {
  Localizer& localizer = Localizer::Get();
  localizer.SetCatalogues(CATALOGUES);
  localizer.SetLanguage("xx:de_AT.UTF-8@euro:de");
  EXPECT_STREQ(std::getenv("LANGUAGE"), "de:C");
  EXPECT_EQ(localizer.GetDecimalSign(), u',');
  EXPECT_TRUE(localizer.HasCatalogue());
  EXPECT_EQ(localizer.Localize("$$$/Studio/Error/Open=The picture cannot be opened."),
            u"Das Bild kann nicht geöffnet werden.");
  const auto built = [&](unsigned long count) {
    return localizer.LocalizePlural("$$$/Studio/Status/Built=Built %1 tile in %2 s.",
                                    "Built %1 tiles in %2 s.", count, {});
  };
  EXPECT_EQ(built(1), u"%1 Kachel in %2 s erstellt.");
  EXPECT_EQ(built(0), u"%1 Kacheln in %2 s erstellt.");
  EXPECT_EQ(localizer.Localize("$$$/Test/Title=Tiles = 1"), u"Tiles = 1");
  EXPECT_EQ(localizer.Localize("$$$/Test/NoText"), u"$$$/Test/NoText");
  EXPECT_EQ(localizer.Localize("$$$/Test/Empty="), u"");
  EXPECT_EQ(localizer.Localize(""), u"") << "the catalogue's header is no text";
  EXPECT_EQ(localizer.Localize(nullptr), u"");
  for (const char* english : {"en:de", "C:de", "./de"}) {
    localizer.SetLanguage(english);
    EXPECT_FALSE(localizer.HasCatalogue()) << english;
    EXPECT_EQ(built(1), u"Built %1 tile in %2 s.");
    EXPECT_EQ(built(2), u"Built %1 tiles in %2 s.");
  }
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C") << "the process's locale does not change";
}

TEST(LocalizerDeathTest, TakesTheLanguageFromTheEnvironmentUnlessTheLocaleIsC) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // each case needs a new process
  const struct {
    const char *language, *all, *messages, *lang;
    bool isGerman;
  } cases[] = {
      {"de", "", "", "en_US", true},      {"", "de_AT", "en_US", "en_US", true},
      {"", "", "de_AT", "en_US", true},   {"", "", "", "de_AT", true},
      {"de", "C", "de", "de", false},     {"de", "POSIX", "de", "de", false},
      {"en", "de_AT", "de", "de", false}, {"de", "", "", "", false},
  };
  for (const auto& [language, all, messages, lang, isGerman] : cases) {
    setenv("LANGUAGE", language, true);
    setenv("LC_ALL", all, true);
    setenv("LC_MESSAGES", messages, true);
    setenv("LANG", lang, true);
    const auto exitWithAnswer = [] {
      std::setlocale(LC_ALL, "C.UTF-8");
      Localizer::Get().SetCatalogues(CATALOGUES);
      if (!(Localizer::Get().Localize(kKey) == kEnglish)) std::_Exit(2);
      Localizer::Get().SetLanguage("");
      std::_Exit(Localizer::Get().HasCatalogue());
    };
    EXPECT_EXIT(exitWithAnswer(), testing::ExitedWithCode(isGerman), "") << language << all << lang;
  }
}

TEST(Localizer, ReplacesEachPlaceholderOnce) {
  const ReplacementValue value(u"%2"), empty{};
  const Localizer& localizer = Localizer::Get();
  const char* const key = "$$$/Test/Width=%1 is wide, %0 %2 is %3 % so";
  EXPECT_EQ(localizer.Localize(key, {value, value, empty}), u"%2 is wide, %0 %2 is  % so");
  EXPECT_EQ(localizer.Localize(key, {value}), u"%2 is wide, %0 %2 is %3 % so");
  EXPECT_EQ(localizer.Localize("$$$/Test/End=%1", {value}), u"%2");
  EXPECT_EQ(localizer.Localize("$$$/Test/End=%", {value}), u"%");
}
