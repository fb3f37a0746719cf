#include "campaign/damage.h"

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <cmath>
#include <cstring>
#include <fstream>
#include <optional>
#include <sstream>

#include "campaign/built_module.h"
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

// Files of every kind with random damage: they are refused with a reason, or what comes of them
// can be worked with.

namespace {

using campaign::Count;
using campaign::Damaged;
using campaign::ForEachSeed;
using campaign::Random;

constexpr const char* kGestures =
    "# a person\nenter HorizontalCountTxt 40\nenter NewWidthTxt 2.5 in\nclick UsePercentChk\n"
    "click MosaicUseRatioButton\nresize 480 360\nclick GrayRadio\nkey Return\n# close, key "
    "Escape\n";

std::string Contents(const std::filesystem::path& file) {
  std::ostringstream text;
  text << std::ifstream(standin::DefaultResourceRoot() / file, std::ios::binary).rdbuf();
  EXPECT_FALSE(text.str().empty()) << file;
  return text.str();
}

/// What `read` makes of it; nothing when it is refused with an Error that says something.
template <typename Error, typename Read>
auto ReadOrRefused(Read read) -> std::optional<decltype(read())> {
  try {
    return read();
  } catch (const Error& error) {
    EXPECT_GT(std::strlen(error.what()), 3u);
  } catch (const std::exception& error) {
    ADD_FAILURE() << "thrown instead of a refusal: " << error.what();
  }
  return std::nullopt;
}

size_t Times(size_t inShort) {
  return Count(inShort / campaign::Step(1), inShort * 100);
}

TEST(DamagedLayout, IsRefusedOrHoldsADialog) {
  const std::string original = Contents("layouts/16301.xml");
  const TemporaryFolder resources;
  std::filesystem::copy(standin::DefaultResourceRoot(), resources.path,
                        std::filesystem::copy_options::recursive);
  BuiltModule built(resources.path);
  nrvui::gestures::ScriptedPresenter person(
      nrvui::gestures::GestureScript::Parse(kGestures, "gestures"));
  const nrvui::ui::InstalledPresenter installed(person);
  size_t shown = 0;
  ForEachSeed(Times(1500), [&](Random& random) {
    const std::string text = Damaged(random, original);
    const auto tree = ReadOrRefused<standin::ResourceError>(
        [&] { return standin::ParseLayout(text, "layout.xml", standin::MakeLiveToken()); });
    resources.Write("layouts/16301.xml", text);
    const MosaicParameters untouched{};
    MosaicParameters record = untouched;
    MosaicDialogState state{};
    const ResultCode code = built.RunDialog(record, state);
    if (code != ResultCode::kSuccess) {
      EXPECT_EQ(std::memcmp(&record, &untouched, sizeof record), 0);
      EXPECT_TRUE(code == ResultCode::kCannot || person.Error());
    }
    EXPECT_TRUE(tree || code == ResultCode::kCannot);
    shown += code == ResultCode::kSuccess;
    EXPECT_EQ(built.host.Sheets().Leftovers(), std::vector<std::string>{});
  });
  EXPECT_GT(shown, 0u);
}

TEST(DamagedStringList, IsRefusedOrGivesAlertsThatCanBeRead) {
  const std::string original = Contents("strings/16050.txt");
  constexpr ResultCode kCodes[] = {ResultCode::kOutOfMemory, ResultCode::kCannot,
                                   ResultCode{401},          ResultCode{-108},
                                   ResultCode{12},           ResultCode{FourCharCode("rfsd")}};
  BuiltModule built;
  size_t alerts = 0;
  ForEachSeed(Times(1500), [&](Random& random) {
    std::istringstream text(Damaged(random, original));
    auto list = ReadOrRefused<standin::ResourceError>(
        [&] { return standin::StringList::Read(text, "16050.txt"); });
    if (!list) return;
    EXPECT_EQ(built.module.ShutDown(), ResultCode::kSuccess);
    built.host.Lists().Replace(standin::ListOwner::kPlugin, 16050, *list);
    built.person.alerts.clear();
    built.host.Operations().Refuse("QP Plug-ins Suite/SetPluginName",
                                   campaign::Pick(random, kCodes));
    (void)built.module.StartUp();
    built.host.Operations().DisturbNothing();
    EXPECT_LE(built.person.alerts.size(), 1u);
    for (const std::string& alert : built.person.alerts) {
      EXPECT_LT(alert.size(), 256u);
      EXPECT_TRUE(nrvcore::utility::IsValidUTF8(alert)) << alert;
    }
    alerts += built.person.alerts.size();
    EXPECT_TRUE(built.module.Globals() || !Failed(built.module.StartUp()));
  });
  EXPECT_GT(alerts, 0u);
}

TEST(DamagedGestures, AreRefusedOrPlayedAsFarAsTheyGo) {
  BuiltModule built;
  size_t confirmed = 0;
  ForEachSeed(Times(3000), [&](Random& random) {
    const std::string text = Damaged(random, kGestures);
    auto script = ReadOrRefused<nrvui::gestures::ScriptError>(
        [&] { return nrvui::gestures::GestureScript::Parse(text, "gestures"); });
    if (!script) return;
    nrvui::gestures::ScriptedPresenter person(*script);
    const nrvui::ui::InstalledPresenter installed(person);
    MosaicParameters record{};
    MosaicDialogState state{};
    const ResultCode code = built.RunDialog(record, state);
    EXPECT_TRUE(code == ResultCode::kSuccess || code == ResultCode::kCancelled) << text;
    confirmed += code == ResultCode::kSuccess;
  });
  EXPECT_GT(confirmed, 0u);
}

TEST(DamagedChoices, AreRefusedOrAreChoices) {
  MosaicChoices choices;
  choices.params.tilesAcross = 40;
  choices.params.tilesDown = 30;
  choices.state.aspectRatio = 1.5f;
  const std::string original = ChoicesToJson(choices).toStdString();
  ForEachSeed(Times(5000), [&](Random& random) {
    const auto read = ReadOrRefused<StudioError>(
        [&] { return ChoicesFromJson(QByteArray::fromStdString(Damaged(random, original))); });
    if (!read) return;
    EXPECT_TRUE(read->params.tilesAcross >= 1 && read->params.tilesAcross <= 8640);
    EXPECT_TRUE(std::isfinite(read->state.aspectRatio));
    const MosaicChoices again = ChoicesFromJson(ChoicesToJson(*read));
    EXPECT_EQ(std::memcmp(&again, &*read, sizeof again), 0);
  });
}

TEST(DamagedPicture, IsRefusedOrIsAPicture) {
  const TemporaryFolder folder;
  const std::filesystem::path file = folder.path / "picture";
  ForEachSeed(Times(1000), [&](Random& random) {
    constexpr const char* kFormats[] = {"png", "jpg", "bmp", "ppm"};
    const char* const format = campaign::Pick(random, kFormats);
    QBuffer buffer;
    const auto extent = [&] { return 1 + static_cast<int>(campaign::Below(random, 40)); };
    const int width = extent();
    ASSERT_TRUE(
        QImageWriter(&buffer, format).write(RandomImage(width, extent(), QImage::Format_RGB32, 1)));
    std::string bytes = buffer.data().toStdString();
    const bool isCut = campaign::Once(random, 2);
    if (isCut) {
      bytes.resize(campaign::Below(random, bytes.size()));
    } else {
      bytes = Damaged(random, bytes);
    }
    folder.Write("picture", bytes);
    const auto picture = ReadOrRefused<StudioError>(
        [&] { return Picture::Read(QString::fromStdString(file.string())); });
    if (!picture) return;
    EXPECT_FALSE(isCut) << format << " at " << bytes.size() << " of " << buffer.size();
    EXPECT_FALSE(picture->Pixels().isNull());
    EXPECT_TRUE(picture->SizeInPoints().width() > 0 && picture->SizeInPoints().height() > 0);
  });
}

}  // namespace
