#include <QBuffer>
#include <QImageWriter>
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
#include "studio/picture.h"
#include "studio/random_picture.h"
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
      return nrvui::gestures::GestureScript::Parse(Damaged(random, gestures), "gestures");
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
      EXPECT_EQ(std::memcmp(&record, &untouched, sizeof record), 0);
      EXPECT_TRUE(code == ResultCode::kCancelled || !person.Error());
    }
    EXPECT_TRUE(tree || !isDamaged || code == ResultCode::kCannot);
    shown += code == ResultCode::kSuccess;
    EXPECT_EQ(built.host.Sheets().Leftovers(), std::vector<std::string>{});
  });
  EXPECT_GT(shown, 0u);
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
    folder.Write("picture", Damaged(random, buffer.data().toStdString()));
    const auto picture = ReadOrRefused<StudioError>([&] { return Picture::Read(file); });
    if (!picture) return;
    EXPECT_FALSE(picture->Pixels().isNull());
    EXPECT_TRUE(picture->SizeInPoints().width() > 0 && picture->SizeInPoints().height() > 0);
  });
}

}  // namespace
