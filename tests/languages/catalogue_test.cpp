#include "platform/nrvcore/localizer.h"
#include "testkit/function_presenter.h"
#include "testkit/open_dialog.h"
#include "tests/support/built_module.h"

namespace {

using nrvcore::config::Localizer;
using testkit::Utf8;

TEST(Languages, DialogIsShownInTheChosenLanguageOrEnglish) {
  Localizer::Get().SetCatalogues(standin::ResourceFolders::OfProgram().host / "translations");
  BuiltModule built;
  const struct {
    const char* language;
    const char* title;
    const char* percent;
    const char* notAvailable;
    const char* bareComma;  // shown after "12,5" is entered in percent mode
    float width;            // in the record
  } languages[] = {
      {"de", "Mosaik erstellen", "&Prozentwerte verwenden", "k. A.", "12,5 %", 0.125f},
      {"ja", "モザイクを作成", "パーセントで指定(&P)", "不明", "100 %", 1},
      {"de_CH.UTF-8", "Mosaik erstellen", "&Prozentwerte verwenden", "k. A.", "12,5 %", 0.125f},
      {"xx", "Create Tesserae", "Use &percentages", "N/A", "100 %", 1},
  };
  for (const auto& expected : languages) {
    Localizer::Get().SetLanguage(expected.language);
    SCOPED_TRACE(expected.language);
    MosaicParameters record = SampleRecord();
    MosaicDialogState state{};
    record.sizeUnavailable = 1;
    const FunctionPresenter person([&expected](nrvui::ui::UI_Dialog& dialog) {
      const testkit::OpenDialog open{dialog};
      EXPECT_EQ(Utf8(open.dialog.GetTitle()), expected.title);
      EXPECT_EQ(Utf8(open.Get("UsePercentChk").GetCaption()), expected.percent);
      EXPECT_EQ(open.Label("OrigWidthStatic"), expected.notAvailable);
      open.Enter("NewWidthTxt", "12,5");
      EXPECT_EQ(open.Text("NewWidthTxt"), expected.bareComma);
      dialog.OnReturnKey();
    });
    EXPECT_EQ(built.RunDialog(record, state), ResultCode::kSuccess);
    EXPECT_EQ(record.newWidth, expected.width);
  }
  Localizer::Get().SetLanguage("en");
}

}  // namespace
