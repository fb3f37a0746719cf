#include "studio/mosaic/preview.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <map>
#include <random>

#include "platform/nrvcore/unicode.h"
#include "platform/nrvui/dialog_presenter.h"
#include "platform/nrvui/gesture.h"
#include "platform/nrvui/ui_node.h"
#include "studio/caller/dialog_summary.h"
#include "studio/caller/mosaic_caller.h"
#include "studio/mosaic/tile_colors.h"
#include "tests/support/random_picture.h"

namespace {

using nrvui::controls::UI_NumberEdit;
using nrvui::ui::UI_Node;

constexpr const char* kFields[] = {"NewWidthTxt",      "NewHeightTxt",     "HorizontalCountTxt",
                                   "VerticalCountTxt", "TileSpaceHorzTxt", "TileSpaceVertTxt"};
constexpr const char* kClickable[] = {"HorizontalRadio", "VerticalRadio",       "ColorRadio",
                                      "GrayRadio",       "UsePercentChk",       "DeleteRasterChk",
                                      "DeleteRasterChk", "MosaicUseRatioButton"};

/// Does anything, notes what the studio expects of OK while a last number is being typed, enters
/// that number and presses OK.
class RandomPerson final : public nrvui::ui::DialogPresenter {
 public:
  RandomPerson(unsigned seed, const MosaicChoices& askedChoices)
      : random(seed), asked(askedChoices) {}

  void Present(nrvui::ui::UI_Dialog& dialog) override {
    std::map<std::string, UI_Node*> nodes;
    nrvui::ui::ForEachBelow<UI_Node>(
        dialog, [&](UI_Node& node) { nodes[std::string(node.UI_GetNodeID().View())] = &node; });
    for (unsigned gestures = random() % 12; gestures > 0; --gestures) {
      if (random() % 2) {
        const unsigned limits[] = {5, 100, 10000};
        const std::string entry = std::to_string(random() % limits[random() % 3]) + ".7";
        (void)nrvui::gestures::Enter(dialog, *nodes.at(kFields[random() % std::size(kFields)]),
                                     nrvcore::utility::UTF8ToUTF16(entry));
      } else {
        (void)nrvui::gestures::Click(dialog,
                                     *nodes.at(kClickable[random() % std::size(kClickable)]));
      }
    }
    auto& field = dynamic_cast<UI_NumberEdit&>(*nodes.at(kFields[random() % std::size(kFields)]));
    const nrvcore::UTF16String typed = field.Format(int(random() % 60) / 4.0);
    const UI_NumberEdit::ParsedEntry entry = field.ParseEntry(typed);
    std::optional<qtui::PendingEntry> pending;
    if (!entry.outcome.IsClamped()) pending = {&field, entry.number};
    expected = ForecastFor(EntriesIn(dialog), asked, pending).choices;
    if (pending) (void)nrvui::gestures::Enter(dialog, field, typed);
    (void)nrvui::gestures::Press(dialog, nrvui::gestures::Key::kReturn);
  }

  std::mt19937 random;
  const MosaicChoices& asked;
  MosaicChoices expected;
};

TEST(DialogChoices, AreThoseThatOkReturns) {
  standin::RecordingUserInterface screen;
  MosaicCaller caller(screen);
  for (unsigned seed = 0; seed < 300; ++seed) {
    std::mt19937 random(seed);
    MosaicChoices asked;
    std::memset(asked.params.reserved0, int(random() % 256), sizeof asked.params.reserved0);
    asked.params.isColor = random() % 2;
    asked.params.deleteRaster = random() % 2;
    asked.params.keepHorizontal = random() % 2;
    asked.params.sizeUnavailable = random() % 4 == 0;
    asked.params.tilesAcross = int(random() % 70000);
    asked.params.tilesDown = int(random() % 200);
    asked.params.boundsRight = int(random() % 40000);
    asked.params.boundsBottom = int(random() % 3 ? random() % 1000 : 0);
    asked.state.usePercent = random() % 2;
    asked.state.reserved6 = asked.state.reserved7 = uint8_t(random());
    const MosaicChoices before = asked;
    RandomPerson person(seed, before);
    const nrvui::ui::InstalledPresenter installed(person);
    ASSERT_TRUE(caller.Ask(asked.params, asked.state)) << seed;
    ASSERT_EQ(std::memcmp(&asked.params, &person.expected.params, sizeof asked.params), 0) << seed;
    ASSERT_EQ(std::memcmp(&asked.state, &person.expected.state, sizeof asked.state), 0) << seed;
  }
  caller.Close();
}

MosaicChoices Choices(int across, int down, bool isColor) {
  MosaicChoices choices;
  choices.params.tilesAcross = across;
  choices.params.tilesDown = down;
  choices.params.isColor = isColor;
  choices.params.deleteRaster = 1;
  choices.params.newWidth = 1000;
  choices.params.newHeight = 1000;
  return choices;
}

/// Forms with edges as soft as a lens makes them, and noise over them.
QImage LargePicture() {
  QImage image(5000, 2500, QImage::Format_RGB32);
  std::mt19937 random(3);
  for (int y = 0; y < image.height(); ++y) {
    auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      const int noise = int(random() % 24);
      const double form = std::tanh(60 * std::sin(x / 220.0) * std::sin(y / 150.0));
      line[x] = qRgb(x * 200 / 5000 + noise, y * 200 / 2500 + noise, 110 + int(70 * form) + noise);
    }
  }
  return image;
}

TEST(Preview, ShowsTheTilesThatAreBuiltWithin3Of255) {
  const Picture picture(LargePicture());
  const Reduction reduction(picture);
  for (const auto& [across, down, isColor] :
       {std::tuple(100, 75, true), std::tuple(512, 333, true), std::tuple(37, 512, false)}) {
    const Mosaic preview = reduction.Preview(picture, Choices(across, down, isColor));
    ASSERT_EQ(preview.tiles.size(), QSize(across, down));
    int row = 0;
    int worst = 0;
    TileColors builder(picture, across, down, isColor);
    ASSERT_TRUE(builder.Run([&, across = across](std::span<const QRgb> tiles) {
      for (int x = 0; x < across; ++x) {
        const QRgb shown = preview.tiles.pixel(x, row);
        for (const int off :
             {qRed(shown) - qRed(tiles[size_t(x)]), qGreen(shown) - qGreen(tiles[size_t(x)]),
              qBlue(shown) - qBlue(tiles[size_t(x)])})
          worst = std::max(worst, std::abs(off));
      }
      ++row;
      return true;
    }));
    EXPECT_LE(worst, 3) << across << " by " << down;
  }
  // More tiles than a screen shows apart do not make it slow.
  EXPECT_LE(reduction.Preview(picture, Choices(8640, 8640, true)).tiles.width(), 1000);
}

TEST(Preview, SaysWhatChoicesLeadTo) {
  const Picture picture(RandomImage(60, 40, QImage::Format_RGB32, 1));
  const qtui::Summary good = SummaryFor(picture, {Choices(100, 50, true)});
  EXPECT_FALSE(good.isWarning);
  EXPECT_EQ(good.text, "5,000 tiles of 10 by 20 pt");
  EXPECT_EQ(SummaryFor(picture, {Choices(1, 1, true)}).text, "1 tile of 1,000 by 1,000 pt");
  MosaicChoices percentages = Choices(60, 40, true);
  percentages.state.aspectRatio = 1.5F;
  percentages.state.usePercent = 1;
  percentages.params.boundsRight = 60;
  percentages.params.boundsBottom = 40;
  percentages.params.newWidth = 1;
  percentages.params.newHeight = 0.67F;
  EXPECT_EQ(SummaryFor(picture, {percentages}).text.toStdString(),
            "2,400 tiles of 1 by 0.67 pt. The ratio is applied to the percentages.");
  MosaicChoices spaced = Choices(100, 50, true);
  spaced.params.tileSpacingHorizontal = 2;
  const qtui::Summary whole = SummaryFor(picture, {spaced, true, true});
  EXPECT_TRUE(whole.isWarning);
  EXPECT_EQ(whole.text.toStdString(),
            "5,000 tiles of 8.02 by 20 pt. Tile numbers are rounded down: 100 by 50. Spacing is "
            "rounded down to whole points: 2 by 0 pt.");
  MosaicChoices crowded = Choices(100, 50, true);
  crowded.params.tileSpacingHorizontal = 98;
  const qtui::Summary bad = SummaryFor(picture, {crowded, false, true});
  EXPECT_TRUE(bad.isWarning);
  EXPECT_TRUE(bad.text.startsWith("No room for tiles")) << bad.text.toStdString();
  EXPECT_TRUE(bad.text.endsWith("whole points: 98 by 0 pt.")) << bad.text.toStdString();
}

}  // namespace
