#include "studio/record_json.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <numeric>

#include "studio/studio_error.h"

namespace {

TEST(RecordJson, TellsEveryFieldOnALineOfItsOwn) {
  MosaicChoices record;
  auto* bytes = reinterpret_cast<unsigned char*>(&record);
  std::iota(bytes, bytes + sizeof record, static_cast<unsigned char>(1));
  record.params.newWidth = 0.33f;
  const QByteArray json = RecordToJson(record);
  const QJsonObject object = QJsonDocument::fromJson(json).object();
  EXPECT_EQ(object.size(), 28);
  EXPECT_EQ(json.count('\n'), 28 + 2);
  EXPECT_EQ(object["reserved0"].toArray(), QJsonArray({1, 2, 3, 4, 5, 6, 7, 8}));
  EXPECT_TRUE(json.contains("\"newWidth\": 0.33,\n"));
  const std::pair<const char*, int> kFields[] = {
      {"isColor", 9},          {"tilesAcross", 0x100F0E0D}, {"boundsBottom", 0x3C3B3A39},
      {"sizeUnavailable", 77}, {"usePercent", 86},          {"reserved7", 88}};
  for (const auto& [name, value] : kFields) EXPECT_EQ(object[name].toInt(), value) << name;
}

TEST(RecordJson, ReadsBackChoicesAndNothingElse) {
  const QByteArray json =
      R"({"isColor": 1, "deleteRaster": 1, "keepHorizontal": 0, "tilesAcross": 32767,
          "tilesDown": 1, "aspectRatio": 1.5, "noOriginalSize": 0, "usePercent": 1,
          "reserved6": 0, "reserved7": 9, "newWidth": 7, "later": "unknown"})";
  const QByteArray again = ChoicesToJson(ChoicesFromJson(json));
  QJsonObject expected = QJsonDocument::fromJson(json).object();
  expected.remove("later");
  expected.remove("newWidth");
  EXPECT_EQ(QJsonDocument::fromJson(again).object(), expected);
  EXPECT_EQ(ChoicesFromJson(json).params.newWidth, 0);
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
