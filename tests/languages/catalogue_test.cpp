#include "mosaic/dialog_harness.h"
#include "platform/nrvcore/localizer.h"
#include "platform/nrvui/outcome.h"
#include "platform/nrvui/ui_unit_number_edit.h"

namespace {

using nrvcore::config::Localizer;
using nrvui::controls::UI_UnitNumberEdit;

/// The built catalogues in one language, for as long as it lives.
class Spoken {
 public:
  explicit Spoken(const char* language) {
    Localizer::Get().SetCatalogues(standin::DefaultResourceRoot() / "translations");
    Localizer::Get().SetLanguage(language);
  }
  Spoken(const Spoken&) = delete;
  Spoken& operator=(const Spoken&) = delete;
  ~Spoken() { Localizer::Get().SetLanguage("en"); }
};

class LanguagesTest : public MosaicTest {};

TEST_F(LanguagesTest, TheDialogSpeaksTheLanguagesThatHaveACatalogue) {
  const struct {
    const char* language;
    const char* title;
    const char* percent;
    const char* notAvailable;
    const char* bareComma;  // what becomes of "12,5" in a field that counts in percent
  } languages[] = {
      {"de", "Mosaik erstellen", "&Prozentwerte verwenden", "k. A.", "12,5 %"},
      {"ja", "モザイクを作成", "パーセントで指定(&P)", "不明", "100 %"},
      {"de_CH.UTF-8", "Mosaik erstellen", "&Prozentwerte verwenden", "k. A.", "12,5 %"},
      {"xx", "Create Tesserae", "Use &percentages", "N/A", "100 %"},
  };
  record.sizeUnavailable = 1;
  for (const auto& expected : languages) {
    const Spoken spoken(expected.language);
    SCOPED_TRACE(expected.language);
    LookAt([&expected](const OpenDialog& open) {
      EXPECT_EQ(Utf8(open.dialog.GetTitle()), expected.title);
      EXPECT_EQ(Utf8(open.Get("UsePercentChk").GetCaption()), expected.percent);
      EXPECT_EQ(open.Label("OrigWidthStatic"), expected.notAvailable);
      open.Enter("NewWidthTxt", "12,5");
      EXPECT_EQ(Utf8(open.Get<UI_UnitNumberEdit>("NewWidthTxt").GetValue()), expected.bareComma);
    });
  }
}

TEST_F(LanguagesTest, AGermanCommaReachesTheRecord) {
  const Spoken german("de");
  EXPECT_EQ(Run([](const OpenDialog& open) {
              open.Enter("NewWidthTxt", "12,5");
              open.Enter("NewHeightTxt", "0.25 in");
              open.dialog.OnReturnKey();
            }),
            ResultCode::kSuccess);
  EXPECT_EQ(record.newWidth, 12.5);
  EXPECT_EQ(record.newHeight, 18.0);
}

TEST(Languages, AMessageNamesWhatWasEnteredInTheLanguagesOwnWay) {
  const nrvui::gestures::Outcome outcome{
      .kind = nrvui::gestures::OutcomeKind::kPulledDown, .entered = u"9000 pt", .put = u"8640 pt"};
  const Spoken japanese("ja");
  EXPECT_EQ(Utf8(Describe(outcome)),
            "9000 ptは上限の8640 ptを超えているため、8640 ptに変更しました。");
}

}  // namespace
