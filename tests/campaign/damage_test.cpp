#include <QBuffer>
#include <QImageWriter>
#include <cmath>
#include <cstring>
#include <fstream>
#include <optional>
#include <sstream>

#include "campaign/built_module.h"
#include "campaign/campaign.h"
#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/scripted_presenter.h"
#include "platform/standin/layout_reader.h"
#include "platform/standin/resource_error.h"
#include "platform/standin/sheet_service.h"
#include "standin/temporary_folder.h"
#include "studio/picture.h"
#include "studio/random_picture.h"
#include "studio/record_json.h"
#include "studio/studio_error.h"

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

template <typename Record>
std::string Bytes(const Record& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

void ForEachDamage(size_t inShort, const std::function<void(Random& random)>& play) {
  campaign::ForEachSeed(campaign::Count(inShort / campaign::Step(1), inShort * 100), play);
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
  ForEachDamage(1500, [&](Random& random) {
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
      EXPECT_EQ(Bytes(record), Bytes(untouched));
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
  original << std::ifstream(standin::DefaultResourceRoot() / "strings/16050.txt").rdbuf();
  ForEachDamage(1500, [&](Random& random) {
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
    for (const std::string& alert : built.person.alerts) {
      EXPECT_TRUE(alert.size() < 256 && nrvcore::utility::IsValidUTF8(alert)) << alert;
    }
    EXPECT_LE(built.person.alerts.size(), 1u);
    EXPECT_EQ(built.module.StartUp(), ResultCode::kSuccess);
  });
}

TEST(DamagedChoices, AreRefusedOrAreChoices) {
  MosaicChoices choices;
  choices.params.tilesAcross = choices.params.tilesDown = 40;
  choices.state.aspectRatio = 1.5f;
  const std::string original = ChoicesToJson(choices).toStdString();
  ForEachDamage(5000, [&](Random& random) {
    const auto read = ReadOrRefused<StudioError>(
        [&] { return ChoicesFromJson(QByteArray::fromStdString(Damaged(random, original))); });
    if (!read) return;
    EXPECT_TRUE(read->params.tilesAcross >= 1 && read->params.tilesAcross <= 32767);
    EXPECT_TRUE(std::isfinite(read->state.aspectRatio));
    const MosaicChoices again = ChoicesFromJson(ChoicesToJson(*read));
    EXPECT_EQ(Bytes(again), Bytes(*read));
  });
}

TEST(DamagedPicture, IsRefusedOrIsAPicture) {
  const TemporaryFolder folder;
  const QString file = QString::fromStdString((folder.path / "picture").string());
  ForEachDamage(1000, [&](Random& random) {
    constexpr const char* kFormats[] = {"png", "jpg", "bmp", "ppm"};
    const int width = 1 + static_cast<int>(campaign::Below(random, 40));
    QBuffer buffer;
    ASSERT_TRUE(QImageWriter(&buffer, campaign::Pick(random, kFormats))
                    .write(RandomImage(width, 20, QImage::Format_RGB32, 1)));
    const std::string whole = buffer.data().toStdString();
    const bool isCut = campaign::Once(random, 2);
    folder.Write("picture", isCut ? whole.substr(0, campaign::Below(random, whole.size()))
                                  : Damaged(random, whole));
    const auto picture = ReadOrRefused<StudioError>([&] { return Picture::Read(file); });
    if (!picture) return;
    EXPECT_FALSE(isCut);
    EXPECT_FALSE(picture->Pixels().isNull());
    EXPECT_TRUE(picture->SizeInPoints().width() > 0 && picture->SizeInPoints().height() > 0);
  });
}

}  // namespace
