#include "studio/caller/record_json.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>
#include <numeric>

#include "studio/base/studio_error.h"
#include "testkit/random.h"

namespace {

QJsonObject Parsed(const QByteArray& json) {
  return QJsonDocument::fromJson(json).object();
}

TEST(RecordJson, TellsEveryFieldOnALineOfItsOwn) {
  MosaicChoices record;
  auto* bytes = reinterpret_cast<unsigned char*>(&record);
  std::iota(bytes, bytes + sizeof record, static_cast<unsigned char>(1));
  record.params.newWidth = 0.33f;
  const QByteArray json = ToJson(record, Fields::kAll);
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

TEST(RecordJson, ReadsBackChoicesAndNothingElseAndRefusesDamage) {
  const QByteArray json =
      R"({"isColor": 1, "deleteRaster": 1, "keepHorizontal": 0, "tilesAcross": 32767,
          "tilesDown": 10, "aspectRatio": 1.5, "noOriginalSize": 0, "usePercent": 1,
          "reserved6": 0, "reserved7": 9, "newWidth": 7, "later": "unknown"})";
  QJsonObject expected = Parsed(json);
  expected.remove("later");
  expected.remove("newWidth");
  EXPECT_EQ(Parsed(ToJson(ChoicesFromJson(json), Fields::kChoices)), expected);
  EXPECT_EQ(ChoicesFromJson(json).params.newWidth, 0);

  const std::pair<const char*, const char*> kDamages[] = {{"{", ""},
                                                          {"}", ""},
                                                          {": 32767", ": 32768"},
                                                          {": 10", ": 0"},
                                                          {": 10", ": 1.5"},
                                                          {": 10", ": \"\""},
                                                          {"tilesDown", "tilesUp"},
                                                          {"Color\": 1", "Color\": 2"},
                                                          {": 1.5", ": 1e300"},
                                                          {": 9", ": 256"},
                                                          {": 9", ": 9.5"}};
  for (const auto& [from, to] : kDamages) {
    QByteArray damaged = json;
    ASSERT_TRUE(damaged.contains(from)) << from;
    EXPECT_THROW(ChoicesFromJson(damaged.replace(from, to)), StudioError) << from << to;
  }
  EXPECT_THROW(ChoicesFromJson("[]"), StudioError);

  for (unsigned seed = 0; seed < 5000 && !HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    testkit::Random random(seed);
    const auto damaged = QByteArray::fromStdString(testkit::Damaged(random, json.toStdString()));
    try {
      const MosaicChoices read = ChoicesFromJson(damaged);
      for (const int32_t count : {read.params.tilesAcross, read.params.tilesDown})
        EXPECT_TRUE(count >= 1 && count <= 32767) << count;
      EXPECT_TRUE(std::isfinite(read.state.aspectRatio));
      EXPECT_EQ(testkit::Bytes(ChoicesFromJson(ToJson(read, Fields::kChoices))),
                testkit::Bytes(read));
    } catch (const StudioError& refusal) {
      EXPECT_STRNE(refusal.what(), "");
    }
  }
}

}  // namespace
