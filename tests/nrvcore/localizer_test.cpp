#include "platform/nrvcore/localizer.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <random>

#include "check/temporary_folder.h"

using nrvcore::config::Localizer;
using nrvcore::config::ReplacementValue;

constexpr const char* kKey = "$$$/nrvui/Gesture/Disabled=The control is disabled.";
constexpr const char16_t* kEnglish = u"The control is disabled.";

TEST(Localizer, ShowsWhatFollowsTheFirstEqualSignOfAKeyWithoutTranslation) {
  Localizer& localizer = Localizer::Get();
  localizer.SetCatalogues(CATALOGUES);
  localizer.SetLanguage("xx:de_AT.UTF-8@euro:de");
  EXPECT_STREQ(std::getenv("LANGUAGE"), "de:C");
  EXPECT_EQ(localizer.GetDecimalSign(), u',');
  EXPECT_TRUE(localizer.HasCatalogue());
  EXPECT_EQ(localizer.Localize("$$$/Studio/Error/Open=The picture cannot be opened."),
            u"Das Bild kann nicht geöffnet werden.");
  EXPECT_EQ(localizer.Localize("$$$/Test/Title=Tiles = 1"), u"Tiles = 1");
  EXPECT_EQ(localizer.Localize("$$$/Test/NoText"), u"$$$/Test/NoText");
  EXPECT_EQ(localizer.Localize("$$$/Test/Empty="), u"");
  EXPECT_EQ(localizer.Localize(""), u"") << "the catalogue's header is no text";
  EXPECT_EQ(localizer.Localize(nullptr), u"");
  for (const char* english : {"en:de", "C:de", "./de"}) {
    localizer.SetLanguage(english);
    EXPECT_FALSE(localizer.HasCatalogue()) << english;
  }
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C") << "the process's locale is its own";
}

TEST(LocalizerDeathTest, FollowsTheEnvironmentUnlessTheLocaleIsThePlainOne) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // each case has a process and its one localizer
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

TEST(Localizer, PassesOverADamagedCatalogue) {
  const auto place = std::filesystem::path("de") / "LC_MESSAGES" / "tesserae.mo";
  const std::string whole = check::ContentOf(CATALOGUES / place);
  Localizer& localizer = Localizer::Get();
  std::mt19937 random(1);
  for (int i = 0; i < 100; ++i) {
    const check::TemporaryFolder folder;  // gettext keeps what it has read from a path
    std::string bytes = whole;
    // The header, the tables of places and of hashes, and the description; or the end.
    for (int j = 0; j < 3; ++j) bytes[random() % (i % 2 ? 40 : bytes.size() / 4)] = char(random());
    if (i % 3 == 0) bytes.resize(random() % bytes.size());
    folder.Write(place, bytes);
    localizer.SetCatalogues(folder.path);
    localizer.SetLanguage("xx:de_AT");
    const bool isDamaged = !localizer.DamagedCatalogue().empty();
    const auto text = localizer.Localize(kKey);
    if (isDamaged || i % 3 == 0) {
      EXPECT_EQ(text, kEnglish) << i;
    }
  }
}

TEST(Localizer, UsesACatalogueThatIsWholeAndInUtf8Alone) {
  const auto place = std::filesystem::path("de") / "LC_MESSAGES" / "tesserae.mo";
  const std::string sound = check::ContentOf(CATALOGUES / place);
  const auto at = [&](size_t offset) {
    uint32_t value;
    std::memcpy(&value, sound.data() + offset, sizeof value);
    return value;
  };
  const uint32_t size = sound.size();
  const struct {
    size_t offset;
    uint32_t value;
  } damages[] = {
      {0, at(0) + 1},                    // the magic number
      {4, 1},                            // the revision
      {8, 0},                            // the number of texts
      {12, size + 1},                    // the table of keys
      {16, size - 4},                    // the table of texts
      {20, 1},                           // the size of the table of hashes
      {at(12), 1},                       // the length of the empty key
      {at(16), at(at(16)) - 1},          // the length of the description
      {at(12) + 12, size},               // the place of a key
      {sound.find("charset=UTF-8"), 0},  // the encoding
  };
  Localizer& localizer = Localizer::Get();
  for (const auto& [offset, value] : damages) {
    const check::TemporaryFolder folder;
    std::string bytes = sound;
    std::memcpy(bytes.data() + offset, &value, sizeof value);
    folder.Write(place, bytes);
    localizer.SetCatalogues(folder.path);
    localizer.SetLanguage("de");
    EXPECT_EQ(localizer.DamagedCatalogue(), folder.path / place) << offset;
  }
}

TEST(Localizer, PutsValuesInTheirPlacesOnce) {
  const ReplacementValue value(u"%2"), empty;
  const Localizer& localizer = Localizer::Get();
  const char* const key = "$$$/Test/Width=%1 is wide, %0 %2 is %3 % so";
  EXPECT_EQ(localizer.Localize(key, {value, value, empty}), u"%2 is wide, %0 %2 is  % so");
  EXPECT_EQ(localizer.Localize(key, {value}), u"%2 is wide, %0 %2 is %3 % so");
  EXPECT_EQ(localizer.Localize("$$$/Test/End=%1", {value}), u"%2");
  EXPECT_EQ(localizer.Localize("$$$/Test/End=%", {value}), u"%");
}
