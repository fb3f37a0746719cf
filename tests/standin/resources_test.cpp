#include <gtest/gtest.h>

#include <set>

#include "platform/nrvcore/localizer.h"
#include "platform/nrvui/node_walk.h"
#include "platform/standin/layout_reader.h"
#include "platform/standin/nominal_layout.h"
#include "platform/standin/resource_root.h"
#include "platform/standin/string_lists.h"

namespace {

using nrvui::ui::Children;
using nrvui::ui::ForEachBelow;
using nrvui::ui::UI_Node;
using standin::ListOwner;

TEST(MosaicLayoutTest, EverythingHasItsPlaceInsideItsParentAndBesideItsSiblings) {
  const standin::SheetTree tree = standin::ReadLayout(
      standin::DefaultResourceRoot() / "layouts" / "16301.xml", standin::MakeLiveToken());
  standin::LayOutNominally(*tree.layout);
  ForEachBelow<UI_Node>(*tree.layout, [](UI_Node& node) {
    const auto outer = node.UI_GetLocalRectF(false);
    const auto& children = Children(node);
    for (size_t i = 0; i < children.size(); ++i) {
      const auto rect = children[i]->UI_GetLocalRectF(true);
      SCOPED_TRACE(children[i]->UI_GetNodeID().View());
      EXPECT_TRUE(rect.left >= 0 && rect.top >= 0);
      EXPECT_TRUE(rect.right <= outer.right && rect.bottom <= outer.bottom);
      for (size_t j = 0; j < i; ++j) {
        const auto other = children[j]->UI_GetLocalRectF(true);
        EXPECT_TRUE(rect.left >= other.right || rect.top >= other.bottom);
      }
    }
  });
}

/// The default text has room for the code that it names.
void ExpectUsableTexts(standin::StringLists& lists) {
  std::set<std::string> keys;
  std::string last;
  for (int32_t index = 1; const std::string* key = lists.Find(ListOwner::kPlugin, 16050, index);
       index += 2) {
    const bool isNumber = *key == std::to_string(std::atoi(key->c_str()));
    EXPECT_TRUE(isNumber || key->size() == 4) << *key;
    EXPECT_TRUE(keys.insert(*key).second) << *key;
    const std::string* const text = lists.Find(ListOwner::kPlugin, 16050, index + 1);
    ASSERT_TRUE(text) << *key;
    EXPECT_LT(text->size(), 256U);
    last = *text;
  }
  for (const char* key : {"!MEM", "CANT", "PARM", "401", "402", "-43"})
    EXPECT_TRUE(keys.contains(key)) << key;
  EXPECT_LT(last.size(), 120U);
  EXPECT_EQ(last.find('%'), last.find("%s"));
  EXPECT_EQ(last.find('%'), last.rfind('%'));
  // Every code of the host's own operations.
  for (int32_t index = 400; index <= 412; ++index)
    EXPECT_TRUE(lists.Find(ListOwner::kHost, 257, index)) << index;
}

TEST(StringResourcesTest, ErrorTextsArePairsWithADefaultInEveryLanguage) {
  standin::StringLists english(standin::DefaultResourceRoot());
  ExpectUsableTexts(english);
  const struct {
    ListOwner owner;
    int32_t number;
    int32_t firstText;
    int32_t step;
  } kLists[] = {{ListOwner::kPlugin, 16050, 2, 2},
                {ListOwner::kPlugin, 16600, 2, 1},
                {ListOwner::kHost, 257, 10, 1}};
  // A list keeps the language in which it is first asked for.
  for (const auto& list : kLists) english.Find(list.owner, list.number, 1);
  auto& localizer = nrvcore::config::Localizer::Get();
  localizer.SetCatalogues(standin::DefaultResourceRoot() / "translations");
  for (const char* language : {"de", "ja"}) {
    localizer.SetLanguage(language);
    standin::StringLists translated(standin::DefaultResourceRoot());
    ExpectUsableTexts(translated);
    for (const auto& list : kLists) {
      for (int32_t index = list.firstText; index < 900; index += list.step) {
        const std::string* const before = english.Find(list.owner, list.number, index);
        const std::string* const text = translated.Find(list.owner, list.number, index);
        ASSERT_EQ(before == nullptr, text == nullptr) << language << " " << index;
        if (!text) continue;
        EXPECT_TRUE(*text != *before && text->size() < 256) << language << " " << index;
      }
    }
  }
  localizer.SetLanguage("en");
}

}  // namespace
