#include "platform/nrvcore/localizer.h"

#include <gtest/gtest.h>

#include <clocale>

#include "nrvcore/translation.h"

using nrvcore::UTF16String;
using nrvcore::config::Localizer;
using nrvcore::config::ReplacementValue;

namespace {

const char* const kTitle = "$$$/Test/Title=Tiles = 1";
const char* const kWidth = "$$$/Test/Width=%1 is wide, %2 is %3 %";

std::u16string Localized(const char* key) {
  return std::u16string(Localizer::Get().Localize(key).View());
}

}  // namespace

TEST(Localizer, ShowsWhatFollowsTheFirstEqualSignUntilALanguageTranslatesTheWholeKey) {
  EXPECT_EQ(Localized(kTitle), u"Tiles = 1");
  {
    const Translation german("de", {{kTitle, "Fließen = 1"},
                                    {"Tiles = 1", "wrong: the message is the whole key"},
                                    {"$$$/nrvcore/Locale/DecimalSign=.", ","}});
    EXPECT_EQ(Localized(kTitle), u"Fließen = 1");
    EXPECT_EQ(Localized("$$$/Test/Untranslated=Plain"), u"Plain");
    EXPECT_EQ(Localized("$$$/Test/NoText"), u"$$$/Test/NoText");
    EXPECT_EQ(Localized("$$$/Test/Empty="), u"");
    EXPECT_EQ(Localized(""), u"") << "the catalogue's header is no text";
    EXPECT_EQ(Localized(nullptr), u"");
    EXPECT_EQ(Localizer::Get().GetDecimalSign(), u',');
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C") << "the process's locale is its own";

    Localizer::Get().SetLanguage("xx");
    EXPECT_EQ(Localized(kTitle), u"Tiles = 1");
    EXPECT_EQ(Localizer::Get().GetDecimalSign(), u'.');
    Localizer::Get().SetLanguage("de_AT");
    EXPECT_EQ(Localized(kTitle), u"Fließen = 1") << "a region falls back to its language";
  }
  const Translation french("fr", {{kTitle, "Carreaux"}});
  EXPECT_EQ(Localized(kTitle), u"Carreaux") << "another folder and language take over";
}

TEST(Localizer, PutsValuesInTheirPlacesOnce) {
  const ReplacementValue value(u"%2"), empty;
  const Localizer& localizer = Localizer::Get();
  EXPECT_EQ(localizer.Localize(kWidth, {value, value, empty}), u"%2 is wide, %2 is  %");
  EXPECT_EQ(localizer.Localize(kWidth, {value}), u"%2 is wide, %2 is %3 %");
  EXPECT_EQ(localizer.Localize("$$$/Test/Odd=%0 %", {value}), u"%0 %");
}
