#include "studio/record_json.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "studio/studio_error.h"

namespace {

MosaicChoices CountedUp() {
  MosaicChoices record;
  auto* bytes = reinterpret_cast<unsigned char*>(&record);
  for (size_t i = 0; i < sizeof record; ++i) bytes[i] = static_cast<unsigned char>(i + 1);
  record.params.newWidth = 0.33f;
  record.params.newHeight = 8640;
  record.state.aspectRatio = 1.5f;
  return record;
}

TEST(RecordJson, TellsEveryFieldOnALineOfItsOwn) {
  const QByteArray json = RecordToJson(CountedUp());
  const QJsonObject object = QJsonDocument::fromJson(json).object();
  EXPECT_EQ(object.size(), 28);
  EXPECT_EQ(json.count('\n'), 28 + 2);
  EXPECT_EQ(object["reserved0"].toArray(), QJsonArray({1, 2, 3, 4, 5, 6, 7, 8}));
  EXPECT_EQ(object["isColor"].toInt(), 9);
  EXPECT_EQ(object["tilesAcross"].toInt(), 0x100F0E0D);
  EXPECT_EQ(object["boundsBottom"].toInt(), 0x3C3B3A39);
  EXPECT_EQ(float(object["newWidth"].toDouble()), 0.33f);
  EXPECT_TRUE(json.contains("\"newWidth\": 0.33,\n"));
  EXPECT_EQ(object["sizeUnavailable"].toInt(), 77);
  EXPECT_EQ(object["usePercent"].toInt(), 86);
  EXPECT_EQ(object["reserved7"].toInt(), 88);
}

TEST(RecordJson, ReadsBackChoicesAndNothingElse) {
  MosaicChoices choices = CountedUp();
  choices.params.isColor = choices.params.deleteRaster = 1;
  choices.params.keepHorizontal = 0;
  choices.params.tilesAcross = 32767;
  choices.params.tilesDown = 1;
  choices.state.noOriginalSize = 0;
  choices.state.usePercent = 1;
  const MosaicChoices back = ChoicesFromJson(ChoicesToJson(choices));
  EXPECT_EQ(back.state.aspectRatio, 1.5f);
  EXPECT_EQ(back.state.usePercent, 1);
  EXPECT_EQ(back.state.reserved7, choices.state.reserved7);
  EXPECT_EQ(back.params.tilesAcross, 32767);
  EXPECT_EQ(back.params.tilesDown, 1);
  EXPECT_EQ(back.params.deleteRaster, 1);
  EXPECT_EQ(back.params.boundsRight, 0);
  EXPECT_EQ(back.params.newWidth, 0);
}

TEST(RecordJson, RefusesDamagedChoices) {
  const QByteArray good = ChoicesToJson(ChoicesFromJson(
      R"({"isColor": 1, "deleteRaster": 0, "keepHorizontal": 0, "tilesAcross": 10, "tilesDown": 20,
          "aspectRatio": 1.5, "noOriginalSize": 0, "usePercent": 0, "reserved6": 0,
          "reserved7": 9, "later": "unknown"})"));
  const struct {
    const char* from;
    const char* to;
  } kDamages[] = {{"{", ""},
                  {"}", ""},
                  {": 10", ": 0"},
                  {": 10", ": 32768"},
                  {": 10", ": 1.5"},
                  {": 10", ": \"10\""},
                  {"tilesDown", "tilesUp"},
                  {"isColor\": 1", "isColor\": 2"},
                  {": 1.5", ": 1e300"},
                  {"reserved7\": 9", "reserved7\": 256"}};
  for (const auto& [from, to] : kDamages) {
    QByteArray damaged = good;
    ASSERT_TRUE(damaged.contains(from)) << from;
    EXPECT_THROW(ChoicesFromJson(damaged.replace(from, to)), StudioError) << from << to;
  }
  EXPECT_THROW(ChoicesFromJson("[]"), StudioError);
  EXPECT_THROW(ChoicesFromJson(""), StudioError);
}

}  // namespace
