#include "platform/standin/layout_reader.h"

#include <gtest/gtest.h>

#include "platform/nrvui/ui_panel.h"
#include "platform/nrvui/ui_radio_button.h"
#include "platform/nrvui/ui_static_text.h"
#include "platform/nrvui/ui_unit_number_edit.h"
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
  EXPECT_EQ(Children(*tree.view)[0], tree.layout);
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
  EXPECT_EQ(As<UI_RadioButton>(Children(grid)[3]).GetGroup(), "choice");
  const auto& row = As<UI_Panel>(Children(*tree.layout)[1]);
  EXPECT_EQ(row.GetArrangement(), PanelArrangement::kRow);
}

TEST(LayoutReaderTest, RefusesWithFileLineAndReasonAndLeavesNoNode) {
  std::string deep;
  for (int i = 0; i < 40; ++i) deep += "<row>";
  for (int i = 0; i < 40; ++i) deep += "</row>";
  const std::pair<std::string, const char*> cases[] = {
      {"", "No document element found"},
      {"<dialog/>", "<dialog> where <sheet> must stand"},
      {"<sheet/>\n\n<sheet/>", "L.xml:3: something after the end of <sheet>"},
      {"<sheet>\n<slider id=\"a\"/></sheet>", "L.xml:2: unknown element <slider>"},
      {"<sheet>\n<row\nalign=\"left\"/></sheet>", "L.xml:3: <row> has no attribute align"},
      {"<sheet>\n<number id=\"a\"><row/></number></sheet>",
       "L.xml:2: <number> cannot hold anything"},
      {"<sheet><number id=\"a\"/>\n<number id=\"a\"/></sheet>",
       "L.xml:2: a second node with the ID a"},
      {"<sheet><number id=\"a\" id=\"b\"/></sheet>", "id is given twice"},
      {"<sheet><number id=\"a b\"/></sheet>", "no name of letters, digits and underscores"},
      {"<sheet><number id=\"a\" value=\"nan\"/></sheet>", "value=\"nan\" is no number"},
      {"<sheet><grid/></sheet>", "<grid> needs the attribute columns"},
      {"<sheet>\n<row>text</row></sheet>", "L.xml:2: text between the elements"},
      {"<sheet><grid columns=\"0\"/></sheet>", "columns=\"0\" is no whole number from 1 to 16"},
      {"<sheet><button id=\"a\" caption=\"OK\"/></sheet>", "no localisation key"},
      {"<sheet><button id=\"a\" caption=\"$$$/T=\xFF\"/></sheet>", "caption is not UTF-8"},
      {"<sheet>\n<label for=\"b\"/></sheet>", "L.xml:2: no node has the ID \"b\""},
      {"<sheet>" + deep + "</sheet>", "nested deeper than 32"},
      {std::string("<sheet>\n\0</sheet>", 17), "L.xml:2: a NUL"},
      {"<sheet>" + std::string(300000, ' ') + "</sheet>", "larger than 262144 bytes"},
  };
  const LiveToken token = standin::MakeLiveToken();
  for (const auto& [text, refusal] : cases) {
    try {
      ParseLayout(text, "L.xml", token);
      ADD_FAILURE() << "read: " << text;
    } catch (const standin::ResourceError& error) {
      const std::string what = error.what();
      EXPECT_TRUE(what.starts_with("L.xml:") && what.find(refusal) != what.npos) << what;
    }
    EXPECT_EQ(standin::CountLive(token), 0);
  }
}

}  // namespace
