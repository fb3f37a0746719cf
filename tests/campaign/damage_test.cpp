#include <cstring>
#include <fstream>
#include <optional>
#include <sstream>

#include "campaign/built_module.h"
#include "campaign/campaign.h"
#include "platform/nrvui/scripted_presenter.h"
#include "platform/standin/layout_reader.h"
#include "platform/standin/resource_error.h"
#include "platform/standin/sheet_service.h"
#include "standin/temporary_folder.h"

// Files with random damage: they are refused with a reason, or what comes of them can be worked
// with.

namespace {

using campaign::Damaged;
using campaign::Random;

/// What `read` makes of it; nothing when it is refused with an Error that says something.
template <typename Error, typename Read>
auto ReadOrRefused(Read read) -> std::optional<decltype(read())> try {
  return read();
} catch (const Error& error) {
  EXPECT_GT(std::strlen(error.what()), 3u);
  return std::nullopt;
}

TEST(DamagedLayout, IsRefusedOrHoldsADialogThatDamagedGesturesPlay) {
  const char* const kLayout = "layouts/16301.xml";
  std::ostringstream original;
  original << std::ifstream(standin::DefaultResourceRoot() / kLayout).rdbuf();
  const TemporaryFolder resources;
  BuiltModule built(resources.path);
  const std::string gestures =
      "enter HorizontalCountTxt 40\nenter NewWidthTxt 2.5 in\nclick UsePercentChk\n"
      "click MosaicUseRatioButton\nresize 480 360\nclick GrayRadio\nkey Return";
  size_t shown = 0;
  campaign::ForEachSeed(campaign::Count(1500 / campaign::Step(1), 150000), [&](Random& random) {
    const std::string text = Damaged(random, original.str());
    const auto script = ReadOrRefused<nrvui::gestures::ScriptError>([&] {
      const bool isWhole = campaign::Once(random, 2);
      return nrvui::gestures::GestureScript::Parse(isWhole ? gestures : Damaged(random, gestures),
                                                   "gestures");
    });
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

}  // namespace
