#include "studio/caller/kept_choices.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>
#include <numeric>

#include "studio/base/studio_error.h"
#include "testkit/random.h"
#include "tests/studio/studio_folder.h"

namespace {

/// A file of version 1.0.
const QByteArray kOldFile =
    R"({"isColor": 1, "deleteRaster": 1, "keepHorizontal": 0, "tilesAcross": 32767,
        "tilesDown": 10, "aspectRatio": 0.7471526, "noOriginalSize": 0, "usePercent": 1,
        "reserved6": 0, "reserved7": 9, "newWidth": 7, "later": "unknown"})";

QJsonObject Parsed(const QByteArray& json) {
  return QJsonDocument::fromJson(json).object();
}

TEST(RecordJson, TellsEveryFieldOnALineOfItsOwn) {
  MosaicChoices record;
  auto* bytes = reinterpret_cast<unsigned char*>(&record);
  std::iota(bytes, bytes + sizeof record, static_cast<unsigned char>(1));
  record.params.newWidth = 0.33f;
  const QByteArray json = RecordJson(record);
  const QJsonObject object = Parsed(json);
  EXPECT_EQ(object.size(), 28);
  EXPECT_EQ(json.count('\n'), 28 + 2);
  EXPECT_EQ(object["reserved0"].toArray(), QJsonArray({1, 2, 3, 4, 5, 6, 7, 8}));
  EXPECT_TRUE(json.contains("\"newWidth\": 0.33,\n"));
  const std::pair<const char*, int> kFields[] = {
      {"isColor", 9},          {"tilesAcross", 0x100F0E0D}, {"boundsBottom", 0x3C3B3A39},
      {"sizeUnavailable", 77}, {"usePercent", 86},          {"reserved7", 88}};
  for (const auto& [name, value] : kFields) EXPECT_EQ(object[name].toInt(), value) << name;
}

TEST(KeptChoices, AreReadBackAndRefusedWhenDamaged) {
  KeptChoices kept = KeptChoicesFromJson(kOldFile.toStdString());
  ASSERT_TRUE(kept.last);
  EXPECT_EQ(kept.last->params.newWidth, 0) << "a field of the record alone";
  kept.recent = {{{"HorizontalCountTxt", 12.1F}, {"ColorRadio", 0}}, {}};
  kept.presets = {{"Größe \"A\"", {{"NewWidthTxt", 1e-7F}}}, {"none", {}}};
  const std::string json = ToJson(kept).toStdString();
  const KeptChoices again = KeptChoicesFromJson(json);
  EXPECT_EQ(testkit::Bytes(*again.last), testkit::Bytes(*kept.last));
  EXPECT_EQ(again.recent, kept.recent);
  EXPECT_EQ(again.presets, kept.presets);
  for (const char* number : {"\"aspectRatio\": 0.7471526,", "\"HorizontalCountTxt\": 12.1"})
    EXPECT_NE(json.find(number), std::string::npos) << json << "the shortest text of a float";
  EXPECT_NE(json.find("\"later\": \"unknown\""), std::string::npos) << "of a later version";
  EXPECT_FALSE(KeptChoicesFromJson(ToJson({}).toStdString()).last);
  EXPECT_TRUE(KeptChoicesFromJson(R"({"recent": []})").presets.empty()) << "a user removed them";

  const std::pair<const char*, const char*> kDamages[] = {{"{", ""},
                                                          {"}", ""},
                                                          {": 32767", ": 32768"},
                                                          {": 10", ": 0"},
                                                          {": 10", ": 1.5"},
                                                          {": 10", ": \"\""},
                                                          {"tilesDown", "tilesUp"},
                                                          {"Color\": 1", "Color\": 2"},
                                                          {": 0.7471526", ": 1e300"},
                                                          {": 0.7471526", ": 1e999"},
                                                          {": 9", ": 256"},
                                                          {": 9", ": 9.5"}};
  for (const auto& [from, to] : kDamages) {
    QByteArray damaged = kOldFile;
    ASSERT_TRUE(damaged.contains(from)) << from;
    EXPECT_THROW(KeptChoicesFromJson(damaged.replace(from, to).toStdString()), StudioError)
        << from << to;
  }
  for (const char* other : {"[]", "7", "{\"presets\": []}", "{\"presets\": {}, \"recent\": [[1]]}",
                            "{\"presets\": {\"a\": {\"b\": true}}}"})
    EXPECT_THROW(KeptChoicesFromJson(other), StudioError) << other;

  for (unsigned seed = 0; seed < 5000 && !HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    testkit::Random random(seed);
    const std::string damaged = testkit::Damaged(random, seed % 2 ? json : kOldFile.toStdString());
    try {
      const KeptChoices read = KeptChoicesFromJson(damaged);
      if (!read.last) continue;
      for (const int32_t count : {read.last->params.tilesAcross, read.last->params.tilesDown})
        EXPECT_TRUE(count >= 1 && count <= 32767) << count;
      EXPECT_TRUE(std::isfinite(read.last->state.aspectRatio));
      EXPECT_NO_THROW(KeptChoicesFromJson(ToJson(read).toStdString()));
    } catch (const StudioError& refusal) {
      EXPECT_STRNE(refusal.what(), "");
    }
  }
}

TEST(KeptChoices, HoldTheLastFiveMosaicsEachOnce) {
  KeptChoices kept;
  MosaicChoices choices;
  choices.params.newWidth = choices.params.boundsRight = 60;
  choices.params.newHeight = choices.params.boundsBottom = 40;
  for (const float tiles : {1, 2, 3, 4, 5, 6, 3}) {
    kept.AddMosaic(choices, {{"HorizontalCountTxt", tiles}, {"NewWidthTxt", 60}});
    choices.params.tilesAcross = int(tiles);
  }
  std::vector<float> tiles;
  for (const DialogEntries& entries : kept.recent) {
    tiles.push_back(entries.at("HorizontalCountTxt"));
    EXPECT_FALSE(entries.contains("NewWidthTxt")) << "the picture's own";
  }
  EXPECT_EQ(tiles, (std::vector<float>{3, 6, 5, 4, 2}));
  EXPECT_EQ(kept.last->params.tilesAcross, 6);
  choices.params.newWidth = 59;
  kept.AddMosaic(choices, {{"NewWidthTxt", 59}});
  EXPECT_TRUE(kept.recent.front().contains("NewWidthTxt"));
}

class ChoicesFileTest : public StudioFolder {
 protected:
  const ChoicesFile file{Path("new/choices")};
};

TEST_F(ChoicesFileTest, KeepsPresetsAndIsNeverOverwrittenUnread) {
  file.Change([](KeptChoices& kept) { kept.presets["Poster"]["ColorRadio"] = 1; });
  ChoicesFile(Path("new/choices")).Change([](KeptChoices& kept) { kept.presets["Wall"]; });
  EXPECT_EQ(file.Load().Preset("poster").at("ColorRadio"), 1);
  try {
    file.Load().Preset("None");
    ADD_FAILURE() << "there is no such preset";
  } catch (const StudioError& error) {
    EXPECT_STREQ(error.what(), "there is no preset None; there are: Poster, Wall");
  }
  const auto expectRefusal = [](const ChoicesFile& refusing, const char* reason) {
    try {
      refusing.Change([](KeptChoices& kept) { kept.presets.clear(); });
      ADD_FAILURE() << reason;
    } catch (const StudioError& error) {
      EXPECT_TRUE(QString(error.what()).endsWith(reason)) << error.what();
    }
  };
  Save("new/choices", "{\n  \"last\": {,");
  expectRefusal(file, "cannot be read: line 2 is not valid JSON");
  EXPECT_EQ(Load("new/choices"), "{\n  \"last\": {,");
  Save("new/choices", R"({"presets": {"Wall": {}, "wall": {}}})");
  expectRefusal(file, "two presets are named \"wall\"");
  expectRefusal(ChoicesFile(Path("in.png/choices")), "in.png");
}

}  // namespace
