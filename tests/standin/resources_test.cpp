#include <gtest/gtest.h>

#include <map>
#include <set>
#include <typeindex>
#include <vector>

#include "platform/nrvui/ui_button.h"
#include "platform/nrvui/ui_checkbox.h"
#include "platform/nrvui/ui_panel.h"
#include "platform/nrvui/ui_radio_button.h"
#include "platform/nrvui/ui_static_text.h"
#include "platform/nrvui/ui_text_button.h"
#include "platform/nrvui/ui_unit_number_edit.h"
#include "platform/standin/layout_reader.h"
#include "platform/standin/nominal_layout.h"
#include "platform/standin/resource_root.h"
#include "platform/standin/string_lists.h"

namespace {

using namespace nrvui::controls;
using nrvui::ui::Children;
using nrvui::ui::UI_Node;
using standin::ListOwner;

/// All nodes of the mosaic dialog's layout, from the top, each before what is in it.
class MosaicLayoutTest : public testing::Test {
 protected:
  MosaicLayoutTest() { Collect(*tree.view); }

  void Collect(UI_Node& node) {
    nodes.push_back(&node);
    for (const auto& child : Children(node)) Collect(*child);
  }

  template <class Node>
  std::vector<Node*> All() const {
    std::vector<Node*> found;
    for (UI_Node* node : nodes)
      if (auto* const match = dynamic_cast<Node*>(node)) found.push_back(match);
    return found;
  }

  UI_Node* Find(std::string_view id) const {
    for (UI_Node* node : nodes)
      if (node->UI_GetNodeID().View() == id) return node;
    return nullptr;
  }

  const standin::SheetTree tree = standin::ReadLayout(
      standin::DefaultResourceRoot() / "layouts" / "16301.xml", standin::MakeLiveToken());
  std::vector<UI_Node*> nodes;
};

template <class Control>
bool Is(UI_Node* node) {
  return dynamic_cast<Control*>(node);
}

TEST_F(MosaicLayoutTest, HoldsEveryControlWithItsClass) {
  const struct {
    bool (*isOfClass)(UI_Node*);
    std::vector<const char*> ids;
  } classes[] = {
      {Is<UI_UnitNumberEdit>,
       {"NewWidthTxt", "NewHeightTxt", "HorizontalCountTxt", "VerticalCountTxt", "TileSpaceHorzTxt",
        "TileSpaceVertTxt"}},
      {Is<UI_Checkbox>, {"DeleteRasterChk", "UsePercentChk"}},
      {Is<UI_RadioButton>, {"HorizontalRadio", "VerticalRadio", "ColorRadio", "GrayRadio"}},
      {Is<UI_TextButton>, {"MosaicUseRatioButton"}},
      {Is<UI_StaticText>, {"OrigWidthStatic", "OrigHeightStatic"}},
      {Is<UI_Button>, {"okButton", "cancelButton"}},
  };
  for (const auto& row : classes)
    for (const char* id : row.ids) EXPECT_TRUE(row.isOfClass(Find(id))) << id;
  EXPECT_EQ(tree.initialFocus, Find("NewWidthTxt"));
  for (const char* id : {"TileSpaceHorzTxt", "TileSpaceVertTxt"})
    EXPECT_EQ(dynamic_cast<UI_UnitNumberEdit*>(Find(id))->GetNumber(), 0) << id;
}

TEST_F(MosaicLayoutTest, CanBeUsedWithTheKeyboard) {
  std::map<char16_t, std::u16string> mnemonics;
  std::set<std::string> labelled;
  for (UI_ControlView* control : All<UI_ControlView>()) {
    const std::u16string caption(control->GetCaption().View());
    const size_t mark = caption.find(u'&');
    if (mark == std::u16string::npos) continue;
    ASSERT_LT(mark + 1, caption.size());
    const char16_t letter = caption[mark + 1] | 0x20;
    EXPECT_TRUE(mnemonics.emplace(letter, caption).second)
        << "two captions have the mnemonic " << static_cast<char>(letter);
    if (const auto* const label = dynamic_cast<UI_StaticText*>(control))
      labelled.emplace(label->GetBuddy().View());
  }
  EXPECT_EQ(mnemonics.size(), 13U)
      << "all controls but OK and Cancel, which have keys of their own";
  for (const UI_UnitNumberEdit* field : All<UI_UnitNumberEdit>())
    EXPECT_EQ(labelled.count(std::string(field->UI_GetNodeID().View())), 1U);
}

TEST_F(MosaicLayoutTest, GroupsBelongTogetherAndOkAndCancelShareAParent) {
  const auto group = [this](const char* id) {
    return std::string(dynamic_cast<UI_RadioButton*>(Find(id))->GetGroup().View());
  };
  EXPECT_EQ(group("HorizontalRadio"), group("VerticalRadio"));
  EXPECT_EQ(group("ColorRadio"), group("GrayRadio"));
  EXPECT_NE(group("ColorRadio"), group("HorizontalRadio"));
  UI_Node* const ok = Find("okButton");
  UI_Node* const cancel = Find("cancelButton");
  EXPECT_EQ(ok->UI_GetParentContainer(), cancel->UI_GetParentContainer());
  EXPECT_LT(ok->UI_GetIndex(), cancel->UI_GetIndex()) << "the dialog will exchange them";
}

TEST_F(MosaicLayoutTest, EverythingHasItsPlaceInsideTheLayout) {
  standin::LayOutNominally(*tree.layout);
  for (UI_Node* node : nodes) {
    for (const auto& child : Children(*node)) {
      if (child == tree.layout) continue;
      const auto rect = child->UI_GetLocalRectF(true);
      const auto outer = node->UI_GetLocalRectF(false);
      EXPECT_TRUE(rect.left >= 0 && rect.top >= 0) << child->UI_GetNodeID().View();
      EXPECT_TRUE(rect.right <= outer.right && rect.bottom <= outer.bottom)
          << child->UI_GetNodeID().View();
    }
  }
}

TEST(StringResourcesTest, ErrorTextsArePairsWithADefault) {
  standin::StringLists lists(standin::DefaultResourceRoot());
  std::map<std::string, std::string> texts;
  std::string last;
  for (int32_t index = 1; const std::string* key = lists.Find(ListOwner::kPlugin, 16050, index);
       index += 2) {
    const std::string* const text = lists.Find(ListOwner::kPlugin, 16050, index + 1);
    ASSERT_TRUE(text) << *key;
    const bool isNumber = *key == std::to_string(std::atoi(key->c_str()));
    EXPECT_TRUE(isNumber || key->size() == 4) << *key;
    EXPECT_FALSE(text->empty());
    EXPECT_LT(text->size(), 256U);
    last = *text;
    EXPECT_TRUE(texts.emplace(*key, *text).second) << *key;
  }
  for (const char* key : {"!MEM", "CANT", "PARM", "401", "402", "-43"})
    EXPECT_EQ(texts.count(key), 1U) << key;
  EXPECT_LT(last.size(), 120U);
  EXPECT_EQ(last.find('%'), last.find("%s"));
  EXPECT_EQ(last.find('%', last.find("%s") + 1), std::string::npos);
}

TEST(StringResourcesTest, AboutAndHostTextsAreThere) {
  standin::StringLists lists(standin::DefaultResourceRoot());
  for (const int32_t index : {1, 2})
    EXPECT_FALSE(lists.Find(ListOwner::kPlugin, 16600, index)->empty());
  EXPECT_EQ(lists.Find(ListOwner::kPlugin, 16600, 3), nullptr);
  // Every code of the host's own operations.
  for (int32_t index = 400; index <= 412; ++index)
    EXPECT_TRUE(lists.Find(ListOwner::kHost, 257, index)) << index;
  EXPECT_EQ(lists.Find(ListOwner::kHost, 257, 9), nullptr);
  EXPECT_EQ(lists.Find(ListOwner::kHost, 257, 900), nullptr);
}

}  // namespace
