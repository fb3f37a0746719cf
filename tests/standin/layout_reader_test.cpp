#include "platform/standin/layout_reader.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/nrvui/ui_button.h"
#include "platform/nrvui/ui_panel.h"
#include "platform/nrvui/ui_radio_button.h"
#include "platform/nrvui/ui_static_text.h"
#include "platform/nrvui/ui_unit_number_edit.h"
#include "platform/standin/nominal_layout.h"
#include "platform/standin/resource_error.h"

namespace {

using namespace nrvui::controls;
using nrvui::ui::Children;
using nrvui::ui::PanelArrangement;
using nrvui::ui::UI_Node;
using nrvui::ui::UI_Panel;
using standin::LiveToken;
using standin::ParseLayout;
using standin::SheetTree;

template <class Node>
Node& As(const boost::intrusive_ptr<UI_Node>& node) {
  return dynamic_cast<Node&>(*node);
}

constexpr const char* kSample = R"(<?xml version="1.0"?>
<sheet focus="count">
  <!-- a comment -->
  <group id="box" caption="$$$/Test/Box=A Box">
    <grid columns="2">
      <label caption="$$$/Test/Count=&amp;Count:" for="count"/>
      <number id="count" value="2.5"/>
      <space/>
      <radio id="one" group="choice" caption="$$$/Test/One=One"/>
    </grid>
  </group>
  <row><space/><button id="ok" caption="$$$/Test/OK=OK"/></row>
</sheet>)";

TEST(LayoutReaderTest, BuildsNodesNestedAsTheElements) {
  const SheetTree tree = ParseLayout(kSample, "sample.xml", standin::MakeLiveToken());
  ASSERT_EQ(Children(*tree.view).size(), 1U);
  EXPECT_EQ(Children(*tree.view)[0], tree.layout);
  ASSERT_EQ(Children(*tree.layout).size(), 2U);

  const auto& group = As<UI_Panel>(Children(*tree.layout)[0]);
  EXPECT_EQ(group.GetTitle(), u"A Box");
  EXPECT_EQ(group.UI_GetNodeID(), "box");
  const auto& grid = As<UI_Panel>(Children(group)[0]);
  EXPECT_EQ(grid.GetArrangement(), PanelArrangement::kGrid);
  EXPECT_EQ(grid.GetColumnCount(), 2U);
  ASSERT_EQ(Children(grid).size(), 4U);
  EXPECT_EQ(As<UI_StaticText>(Children(grid)[0]).GetBuddy(), "count");
  EXPECT_EQ(As<UI_StaticText>(Children(grid)[0]).GetCaption(), u"&Count:");
  EXPECT_EQ(As<UI_UnitNumberEdit>(Children(grid)[1]).GetNumber(), 2.5);
  EXPECT_EQ(tree.initialFocus, Children(grid)[1]);
  EXPECT_TRUE(Children(As<UI_Panel>(Children(grid)[2])).empty());
  EXPECT_EQ(As<UI_RadioButton>(Children(grid)[3]).GetGroup(), "choice");
  const auto& row = As<UI_Panel>(Children(*tree.layout)[1]);
  EXPECT_EQ(row.GetArrangement(), PanelArrangement::kRow);
  EXPECT_EQ(As<UI_Button>(Children(row)[1]).UI_GetNodeID(), "ok");
}

TEST(LayoutReaderTest, RefusesWithFileLineAndReasonAndLeavesNoNode) {
  const std::string key = "caption=\"$$$/T=t\"";
  std::string deep;
  for (int i = 0; i < 40; ++i) deep += "<row>";
  for (int i = 0; i < 40; ++i) deep += "</row>";
  const struct {
    std::string text;
    const char* refusal;
  } cases[] = {
      {"", "No document element found"},
      {"<sheet>\n<row>\n</sheet>", "Start-end tags mismatch"},
      {"<dialog/>", "<dialog> where <sheet> must stand"},
      {"<sheet/>\n\n<sheet/>", "L.xml:3: something after the end of <sheet>"},
      {"<sheet size=\"1\"/>", "L.xml:1: <sheet> has no attribute size"},
      {"<sheet>\n<slider id=\"a\"/></sheet>", "L.xml:2: unknown element <slider>"},
      {"<sheet>\n<row\nalign=\"left\"/></sheet>", "L.xml:3: <row> has no attribute align"},
      {"<sheet>\n<row>text</row></sheet>", "L.xml:2: text between the elements"},
      {"<sheet>\n<number id=\"a\"><row/></number></sheet>",
       "L.xml:2: <number> cannot hold anything"},
      {"<sheet><number id=\"a\"/>\n<number id=\"a\"/></sheet>",
       "L.xml:2: a second node with the ID a"},
      {"<sheet><number id=\"a\" id=\"b\"/></sheet>", "id is given twice"},
      {"<sheet><number/></sheet>", "<number> needs the attribute id"},
      {"<sheet><number id=\"a b\"/></sheet>", "no name of letters, digits and underscores"},
      {"<sheet><number id=\"a\" value=\"1,5\"/></sheet>", "value=\"1,5\" is no number"},
      {"<sheet><number id=\"a\" value=\"nan\"/></sheet>", "value=\"nan\" is no number"},
      {"<sheet><grid columns=\"0\"/></sheet>", "columns=\"0\" is no whole number from 1 to 16"},
      {"<sheet><grid/></sheet>", "<grid> needs the attribute columns"},
      {"<sheet><button id=\"a\" caption=\"OK\"/></sheet>", "no localisation key"},
      {"<sheet><button id=\"a\" caption=\"$$$/T=\xFF\"/></sheet>", "caption is not UTF-8"},
      {"<sheet>\n<label " + key + " for=\"b\"/></sheet>", "L.xml:2: no node has the ID \"b\""},
      {"<sheet focus=\"b\"/>", "no node has the ID \"b\""},
      {"<sheet>" + deep + "</sheet>", "nested deeper than 32"},
      {std::string("<sheet>\n\0</sheet>", 17), "L.xml:2: a NUL"},
      {"<sheet>" + std::string(300000, ' ') + "</sheet>", "larger than 262144 bytes"},
  };
  const LiveToken token = standin::MakeLiveToken();
  for (const auto& test : cases) {
    try {
      ParseLayout(test.text, "L.xml", token);
      ADD_FAILURE() << "read: " << test.text;
    } catch (const standin::ResourceError& error) {
      EXPECT_TRUE(std::string(error.what()).starts_with("L.xml:")) << error.what();
      EXPECT_NE(std::string(error.what()).find(test.refusal), std::string::npos) << error.what();
    }
    EXPECT_EQ(standin::CountLive(token), 0);
  }
}

TEST(LayoutReaderTest, DamagedTextsAreReadOrRefused) {
  const LiveToken token = standin::MakeLiveToken();
  const std::string sample = kSample;
  int refused = 0;
  for (unsigned seed = 0; seed < 3000; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    std::string text = sample;
    for (unsigned n = random() % 4 + 1; n > 0; --n) {
      const size_t place = random() % text.size();
      if (random() % 2)
        text[place] = static_cast<char>(random());
      else
        text.erase(place, random() % 9);
    }
    try {
      standin::LayOutNominally(*ParseLayout(text, "damaged.xml", token).layout);
    } catch (const standin::ResourceError&) {
      ++refused;
    }
    ASSERT_EQ(standin::CountLive(token), 0);
  }
  EXPECT_GT(refused, 1000);
}

TEST(LayoutReaderTest, NominalPlacesDoNotOverlapAndFillTheRoom) {
  const SheetTree tree = ParseLayout(kSample, "sample.xml", standin::MakeLiveToken());
  const auto natural = standin::LayOutNominally(*tree.layout);
  const auto& grid = *Children(*Children(*tree.layout)[0])[0];
  const auto label = Children(grid)[0]->UI_GetLocalRectF(true);
  const auto number = Children(grid)[1]->UI_GetLocalRectF(true);
  const auto radio = Children(grid)[3]->UI_GetLocalRectF(true);
  EXPECT_EQ(label.Width(), 6 * 7) << "a cell for each character but the mnemonic's mark";
  EXPECT_GE(number.left, label.right);
  EXPECT_GE(radio.top, number.bottom);
  EXPECT_EQ(radio.left, number.left);

  const auto group = Children(*tree.layout)[0]->UI_GetLocalRectF(true);
  const auto row = Children(*tree.layout)[1]->UI_GetLocalRectF(true);
  const auto button = Children(*Children(*tree.layout)[1])[1]->UI_GetLocalRectF(true);
  EXPECT_EQ(group.Width(), row.Width());
  EXPECT_EQ(button.right, row.Width()) << "the space pushes it to the right edge";
  EXPECT_EQ(natural.x, row.right + group.left) << "the same margin left and right";
  EXPECT_EQ(natural.y, row.bottom + group.top);
}

}  // namespace
