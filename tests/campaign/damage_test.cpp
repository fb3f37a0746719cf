#include <fstream>
#include <sstream>

#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/scripted_presenter.h"
#include "platform/standin/layout_reader.h"
#include "platform/standin/resources.h"
#include "platform/standin/sheet_service.h"
#include "tests/support/built_module.h"
#include "tests/support/campaign.h"
#include "tests/support/temporary_folder.h"

// Files with random damage: they are refused with a reason, or what comes of them can be worked
// with.

namespace {

using campaign::Damaged;
using campaign::Random;
using campaign::ReadOrRefused;

TEST(DamagedLayout, IsRefusedOrHoldsADialogThatDamagedGesturesPlay) {
  const char* const kLayout = "layouts/16301.xml";
  std::ostringstream original;
  original << std::ifstream(standin::ResourceFolders::OfProgram().plugin / kLayout).rdbuf();
  const TemporaryFolder resources;
  BuiltModule built({resources.path, resources.path});
  const std::string gestures =
      "enter HorizontalCountTxt 40\nenter NewWidthTxt 2.5 in\nclick UsePercentChk\n"
      "click MosaicUseRatioButton\nresize 480 360\nclick GrayRadio\nkey Return";
  size_t shown = 0;
  campaign::ForEachSeed(campaign::Count(1500 / campaign::Step(1), 150000), [&](Random& random) {
    const std::string text = Damaged(random, original.str());
    const std::string played = campaign::Once(random, 2) ? gestures : Damaged(random, gestures);
    const auto script = ReadOrRefused<nrvui::gestures::ScriptError>(
        [&] { return nrvui::gestures::GestureScript::Parse(played, "gestures"); });
    const auto tree = ReadOrRefused<standin::ResourceError>(
        [&] { return standin::ParseLayout(text, "layout.xml", standin::MakeLiveToken()); });
    if (!script) return;
    const bool isDamaged = campaign::Once(random, 2);
    resources.Write(kLayout, isDamaged ? text : original.str());
    nrvui::gestures::ScriptedPresenter person(*script);
    const nrvui::ui::InstalledPresenter installed(person);
    const MosaicParameters untouched{};
    MosaicParameters record = untouched;
    MosaicDialogState state{};
    const ResultCode code = built.RunDialog(record, state);
    if (code != ResultCode::kSuccess) {
      EXPECT_EQ(campaign::Bytes(record), campaign::Bytes(untouched));
      EXPECT_TRUE(code == ResultCode::kCancelled || !person.Error());
    }
    EXPECT_TRUE(tree || !isDamaged || code == ResultCode::kCannot);
    shown += code == ResultCode::kSuccess;
    EXPECT_EQ(built.host.Sheets().Leftovers(), std::vector<std::string>{});
  });
  EXPECT_GT(shown, 0u) << "a single seed that is played again may show none";
}

TEST(DamagedStringList, IsRefusedOrGivesAlertsThatCanBeRead) {
  std::ostringstream original;
  original
      << std::ifstream(standin::ResourceFolders::OfProgram().plugin / "strings/16050.txt").rdbuf();
  campaign::ForEachSeed(campaign::Count(1500 / campaign::Step(1), 150000), [&](Random& random) {
    std::istringstream text(Damaged(random, original.str()));
    const auto list = ReadOrRefused<standin::ResourceError>(
        [&] { return standin::StringList::Read(text, "16050.txt"); });
    if (!list) return;
    BuiltModule built;
    EXPECT_EQ(built.module.ShutDown(), ResultCode::kSuccess);
    built.host.Lists().Replace(standin::ListOwner::kPlugin, 16050, *list);
    const auto code = ResultCode{static_cast<int32_t>(campaign::Below(random, 1000)) + 1};
    built.host.Operations().Refuse("QP Plug-ins Suite/SetPluginName", code);
    EXPECT_EQ(built.module.StartUp(), code);
    EXPECT_LE(built.person.alerts.size(), 1u);
    for (const std::string& alert : built.person.alerts)
      EXPECT_TRUE(alert.size() < 256 && nrvcore::utility::IsValidUTF8(alert)) << alert;
    EXPECT_EQ(built.module.StartUp(), ResultCode::kSuccess);
  });
}

}  // namespace
