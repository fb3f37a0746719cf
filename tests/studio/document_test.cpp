#include "studio/window/document.h"

#include <gtest/gtest.h>

#include "tests/support/random_picture.h"

namespace {

/// 16 by 16 pixels of four bytes are a kilobyte.
ArtworkPtr Placed() {
  return Place("a.png", Picture(RandomImage(16, 16, QImage::Format_RGB32, 1)), false);
}

ArtworkPtr MosaicOf(const ArtworkPtr& artwork) {
  return WithMosaic(*artwork, {{}, QImage(16, 16, QImage::Format_ARGB32), {}});
}

TEST(Document, KnowsWhichMosaicWouldBeLost) {
  Document document;
  EXPECT_TRUE(document.Unexported().empty());
  document.Change("place", Placed());
  const ArtworkPtr first = MosaicOf(document.Shown());
  document.Change("create", first);
  EXPECT_EQ(document.Unexported(), std::vector{first});
  document.NoteExport();
  EXPECT_TRUE(document.Unexported().empty());

  const ArtworkPtr second = MosaicOf(first);
  document.Change("create", second);
  document.NoteExport();
  document.Undo();
  EXPECT_TRUE(document.Unexported().empty()) << "both are exported";

  const ArtworkPtr third = MosaicOf(first);
  document.Change("create", third);
  EXPECT_EQ(document.RedoName(), "") << "the second is gone";
  const ArtworkPtr fourth = MosaicOf(first);
  document.Change("create", fourth);
  document.Change("place", Placed());
  EXPECT_EQ(document.Unexported(), std::vector{fourth});
  document.GoTo(fourth);
  EXPECT_EQ(document.Shown(), fourth);
  document.NoteExport();
  document.Redo();
  EXPECT_TRUE(document.Unexported().empty()) << "the fourth replaced the third";
  EXPECT_EQ(document.UndoName(), "place");
}

TEST(Document, ForgetsItsOldestStepsWhenTheyGetHeavy) {
  const auto stepsBack = [](int height, int bytesPerLine) {
    Document document(Placed());
    for (int i = 0; i < 40; ++i) {
      static constexpr uchar kNothing[4] = {};  // nobody looks at the tiles
      const QImage image(kNothing, 1, height, bytesPerLine, QImage::Format_ARGB32);
      document.Change("create", WithMosaic(*document.Shown(), {{}, image, {}}));
    }
    int steps = 0;
    for (; !document.UndoName().isEmpty(); ++steps) document.Undo();
    return steps;
  };
  EXPECT_EQ(stepsBack(1 << 14, 1 << 14), 2) << "a picture that they share, and three of 256 MB";
  EXPECT_EQ(stepsBack((1 << 14) - 1, 1 << 14), 3) << "four that leave room for the picture";
  EXPECT_EQ(stepsBack(1 << 16, 1 << 15), 1) << "the last step can always be taken back";
  EXPECT_EQ(stepsBack(1, 4), 30);
}

}  // namespace
