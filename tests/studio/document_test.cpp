#include "studio/window/document.h"

#include "studio/base/studio_error.h"
#include "tests/studio/studio_folder.h"

namespace {

/// 16 by 16 pixels of four bytes are a kilobyte.
ArtworkPtr Placed() {
  return Place("a.png", Picture(RandomImage(16, 16, QImage::Format_RGB32, 1)), false);
}

ArtworkPtr MosaicOf(const ArtworkPtr& artwork) {
  return WithMosaic(*artwork, {{}, QImage(16, 16, QImage::Format_ARGB32), {}});
}

/// An image that counts as large and takes no memory; nobody looks at its pixels.
QImage Heavy(int height, int bytesPerLine, QImage::Format format) {
  static constexpr uchar kNothing[4] = {};
  return {kNothing, 1, height, bytesPerLine, format};
}

/// The mosaics that would be lost, the last one first.
std::vector<const Mosaic*> Lost(const Document& document) {
  std::vector<const Mosaic*> lost;
  for (const size_t step : document.Unexported())
    lost.push_back(document.ArtworkOf(step).mosaic.get());
  return lost;
}

TEST(Document, KnowsWhichMosaicWouldBeLost) {
  Document document({});
  EXPECT_TRUE(document.Unexported().empty());
  document.Change("place", Placed());
  const ArtworkPtr first = MosaicOf(document.Shown());
  document.Change("create", first);
  EXPECT_EQ(Lost(document), std::vector{first->mosaic.get()});
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
  EXPECT_EQ(Lost(document), std::vector{fourth->mosaic.get()});
  document.GoTo(document.Unexported().front());
  EXPECT_EQ(document.Shown(), fourth);
  document.NoteExport();
  document.Redo();
  EXPECT_TRUE(document.Unexported().empty()) << "the fourth replaced the third";
  EXPECT_EQ(document.UndoName(), "place");
}

TEST(Document, ForgetsItsOldestStepsWhenTheyGetHeavyButNoMosaicThatWouldBeLost) {
  const auto stepsBack = [](int height, int bytesPerLine) {
    Document document({}, Placed());
    for (int i = 0; i < 40; ++i) {
      const QImage tiles = Heavy(height, bytesPerLine, QImage::Format_ARGB32);
      document.Change("create", WithMosaic(*document.Shown(), {{}, tiles, {}}));
    }
    int steps = 0;
    for (; !document.UndoName().isEmpty(); ++steps) document.Undo();
    return steps;
  };
  EXPECT_EQ(stepsBack(1 << 14, 1 << 14), 2) << "a picture without a file, and three of 256 MB";
  EXPECT_EQ(stepsBack((1 << 14) - 1, 1 << 14), 3) << "four that leave room for the picture";
  EXPECT_EQ(stepsBack(1 << 16, 1 << 15), 1) << "the last step can always be taken back";
  EXPECT_EQ(stepsBack(1, 4), 30);

  Document document({});
  std::vector<const Mosaic*> mosaics;
  for (int i = 0; i < 40; ++i) {
    document.Change("place", Placed());
    if (i % 10 > 0) continue;
    document.Change("create", MosaicOf(document.Shown()));
    mosaics.insert(mosaics.begin(), document.Shown()->mosaic.get());
  }
  EXPECT_EQ(Lost(document), mosaics);
  EXPECT_EQ(document.CurrentStep(), 30);
}

using DocumentFiles = StudioFolder;

TEST_F(DocumentFiles, AreReadAgainForStepsWhosePicturesWereReleased) {
  QStringList read;
  bool isCancelled = false;
  Document document([&](const QString& path) -> std::optional<Picture> {
    read += QFileInfo(path).fileName();
    if (isCancelled) return std::nullopt;
    return Picture(Heavy(1 << 16, 1 << 13, QImage::Format_RGB32));
  });
  const auto place = [&](const char* name) {
    Save(name, name);
    document.Change(
        name, Place(Path(name), Picture(Heavy(1 << 16, 1 << 13, QImage::Format_RGB32)), false));
  };
  const auto heightAt = [&](size_t step) {
    return document.ArtworkOf(step).picture.Pixels().height();
  };
  place("1.png");
  const QImage tiles(3, 2, QImage::Format_ARGB32);
  document.Change("create",
                  WithMosaic(*document.Shown(), {{}, tiles, document.Shown()->picture.Pixels()}));
  place("2.png");
  EXPECT_EQ(heightAt(1), 1 << 16) << "two of 512 MB";
  place("3.png");
  EXPECT_EQ(heightAt(1), 1);
  EXPECT_EQ(document.ArtworkOf(2).mosaic->below.height(), 1) << "also below its tiles";
  EXPECT_EQ(Lost(document).size(), 1U);

  ASSERT_TRUE(document.Undo());
  isCancelled = true;
  EXPECT_FALSE(document.Undo());
  EXPECT_EQ(document.CurrentStep(), 3) << "where it was";
  isCancelled = false;
  EXPECT_TRUE(document.Undo() && document.Undo());
  EXPECT_EQ(read, QStringList({"1.png", "1.png"})) << "once for all steps of the picture";
  EXPECT_EQ(document.ArtworkOf(2).mosaic->below.height(), 1 << 16);
  EXPECT_EQ(document.ArtworkOf(2).mosaic->tiles, tiles);

  place("4.png");
  place("5.png");
  Save("1.png", "another picture");
  document.Undo();
  EXPECT_THROW(document.Undo(), StudioError) << "the file has changed";
  EXPECT_EQ(document.Shown()->path, Path("4.png"));
}

}  // namespace
