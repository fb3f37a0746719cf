#include "platform/standin/resources.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "platform/nrvcore/file.h"
#include "platform/nrvcore/localizer.h"
#include "platform/nrvui/ui_controls.h"
#include "platform/nrvui/ui_edits.h"
#include "platform/nrvui/ui_views.h"
#include "platform/standin/layout_reader.h"

namespace {

using namespace nrvui::controls;
using nrvui::ui::Children;
using nrvui::ui::PanelArrangement;
using nrvui::ui::UI_Node;
using nrvui::ui::UI_Panel;
using standin::ListOwner;
using standin::ParseLayout;
using standin::SheetTree;
using standin::StringList;

/// The error of `read`, or "none".
template <typename Read>
std::string Refusal(Read read) {
  try {
    read();
    return "none";
  } catch (const nrvcore::FileError& error) {
    return error.what();
  }
}

template <class Node>
Node& As(const boost::intrusive_ptr<UI_Node>& node) {
  return dynamic_cast<Node&>(*node);
}

constexpr const char* kSample = R"(<?xml version="1.0"?>
<sheet width="32767" height="1" focus="count">
  <!-- a comment -->
  <group id="box" caption="$$$/Test/Box=A Box" columns="2">
    <label caption="$$$/Test/Count=&amp;Count:" for="count"/>
    <number id="count" value="2.5" help="$$$/Test/For=For." help-disabled="$$$/Test/Off=Off."/>
    <space/>
    <radio id="one" group="_09AZaz" caption="$$$/Test/One=One"/>
  </group>
  <row><space/><button id="ok" caption="$$$/Test/OK=OK"/></row>
</sheet>)";

TEST(Layout, BuildsTheNodesOfItsElements) {
  const SheetTree tree = ParseLayout(kSample, "sample.xml", standin::MakeLiveToken());
  EXPECT_EQ(Children(*tree.view)[0], tree.layout);
  EXPECT_EQ(tree.view->UI_GetLocalRectF(), (nrvcore::geom::RectT<float>{0, 0, 32767, 1}));
  const auto& group = As<UI_Panel>(Children(*tree.layout)[0]);
  EXPECT_EQ(group.GetTitle(), u"A Box");
  EXPECT_EQ(group.UI_GetNodeID(), "box");
  EXPECT_EQ(group.GetArrangement(), PanelArrangement::kGrid);
  EXPECT_EQ(group.GetColumnCount(), 2U);
  ASSERT_EQ(Children(group).size(), 4U);
  EXPECT_EQ(As<UI_StaticText>(Children(group)[0]).GetBuddy(), "count");
  EXPECT_EQ(As<UI_StaticText>(Children(group)[0]).GetCaption(), u"&Count:");
  EXPECT_EQ(As<UI_UnitNumberEdit>(Children(group)[1]).GetNumber(), 2.5);
  EXPECT_EQ(As<UI_UnitNumberEdit>(Children(group)[1]).GetHelp(), u"For.");
  As<UI_UnitNumberEdit>(Children(group)[1]).SetDisabled(true);
  EXPECT_EQ(As<UI_UnitNumberEdit>(Children(group)[1]).GetHelp(), u"Off.");
  EXPECT_EQ(tree.initialFocus, Children(group)[1]);
  EXPECT_EQ(As<UI_RadioButton>(Children(group)[3]).GetGroup(), "_09AZaz");
  const auto& row = As<UI_Panel>(Children(*tree.layout)[1]);
  EXPECT_EQ(row.GetArrangement(), PanelArrangement::kRow);
}

TEST(Layout, AcceptsColumnsUpToItsLimit) {
  for (const std::string columns : {"1", "16"}) {
    const std::string text = "<sheet><grid columns='" + columns + "'/></sheet>";
    EXPECT_EQ(Refusal([&] { ParseLayout(text, "L.xml", standin::MakeLiveToken()); }), "none");
  }
}

TEST(Layout, RefusalStatesFileLineAndReasonAndReleasesAllNodes) {
  const std::pair<std::string, const char*> cases[] = {
      {"", "No document element found"},
      {"<dialog/>", "<dialog> instead of <sheet>"},
      {"<sheet>\n<slider id=\"a\"/></sheet>", "L.xml:2: unknown element <slider>"},
      {"<sheet><space/>\n<row id='a'><row id='a'/></row></sheet>",
       "L.xml:2: a second node with the ID a"},
      {"<sheet><number id=\"a\" value=\"nan\"/></sheet>", "value=\"nan\" is not a number"},
      {"<sheet><grid/></sheet>", "<grid> needs the attribute columns"},
      {"<sheet>\n<row>text</row></sheet>", "L.xml:2: text between the elements"},
      {"<sheet><grid columns=\"0\"/></sheet>", "columns=\"0\" is not a whole number from 1 to 16"},
      {"<sheet style='a'/>", "<sheet> has no attribute style"},
      {"<sheet width='3x'/>", "L.xml:1: width=\"3x\" is not a whole number from 1 to 32767"},
  };
  const standin::LiveToken token = standin::MakeLiveToken();
  for (const auto& [text, reason] : cases) {
    const std::string refusal = Refusal([&, &bad = text] { ParseLayout(bad, "L.xml", token); });
    EXPECT_TRUE(refusal.starts_with("L.xml:") && refusal.find(reason) != refusal.npos) << refusal;
    EXPECT_EQ(standin::CountLive(token), 0);
  }
}

StringList ReadList(const std::string& text) {
  return standin::ParseStringList(text, "list.txt");
}

TEST(StringList, KeepsGapsBetweenIndicesAndRefusesDamage) {
  const StringList list = ReadList("# about\n\n1\tfirst\r\n3\twith\ttab and # and %s\n32767\t");
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(list.at(1), "first");
  EXPECT_FALSE(list.contains(2));
  EXPECT_EQ(list.at(3), "with\ttab and # and %s");
  EXPECT_EQ(list.at(32767), "");

  const std::pair<std::string, const char*> cases[] = {
      {"1\ta\n2 b\n", "list.txt:2: no tab between index and text"},
      {"1\ta\n\n1\tb\n", "list.txt:3: \"1\" is not an index above 1"},
      {"0\ta\n", "list.txt:1: \"0\" is not an index above 0"},
      {"1x\ta\n", "list.txt:1: \"1x\" is not an index above 0"},
      {"99999999999\ta\n", "list.txt:1: \"99999999999\" is not an index above 0"},
      {"1\t\xC3(\n", "list.txt:1: the line is not UTF-8"},
  };
  for (const auto& [text, reason] : cases)
    EXPECT_EQ(Refusal([&bad = text] { ReadList(bad); }), reason);
}

TEST(StringLists, OfTheProjectAreCompleteInEveryLanguage) {
  const auto resources = standin::ResourceFolders::OfProgram();
  const auto read = [](const std::filesystem::path& file) {
    return standin::ParseStringList(nrvcore::ReadFile(file), file);
  };
  // Pairs of code and text without a gap, which would end the search.
  const auto failures = read(resources.plugin / "strings/16050.txt");
  EXPECT_EQ(failures.rbegin()->first, int32_t(failures.size()));
  std::set<std::string> codes;
  for (const auto& [index, code] : failures) {
    if (index % 2 == 0) continue;
    EXPECT_TRUE(code.size() == 4 || code == std::to_string(std::atoi(code.c_str()))) << code;
    EXPECT_TRUE(codes.insert(code).second && failures.contains(index + 1)) << code;
  }
  for (const char* code : {"!MEM", "CANT", "PARM", "401", "402", "-43"})
    EXPECT_TRUE(codes.contains(code)) << code;
  // Every code of the host's own operations.
  const auto host = read(resources.host / "host/257.txt");
  for (int32_t index = 400; index <= 412; ++index) EXPECT_TRUE(host.contains(index)) << index;

  auto& localizer = nrvcore::config::Localizer::Get();
  localizer.SetCatalogues(resources.host / "translations");
  for (const std::string language : {"de", "ja", "en"}) {
    localizer.SetLanguage(language);
    standin::StringLists lists(resources);
    for (const auto& [owner, number, texts] :
         {std::tuple(ListOwner::kPlugin, 16050, failures),
          {ListOwner::kPlugin, 16600, read(resources.plugin / "strings/16600.txt")},
          {ListOwner::kHost, 257, host}}) {
      for (int32_t index = 1; index < 1000; ++index) {
        const std::string* const found = lists.Find(owner, number, index);
        ASSERT_EQ(found != nullptr, texts.contains(index)) << language << ": " << index;
        if (!found) continue;
        const std::string &shown = *found, &text = texts.at(index);
        const bool isSentence = text.find(' ') != text.npos;  // neither a code nor a name
        EXPECT_EQ(shown != text, isSentence && language != "en") << language << ": " << text;
        EXPECT_LT(shown.size(), 256U);
      }
    }
    // The last text is the default, which names the code.
    const std::string& last = *lists.Find(ListOwner::kPlugin, 16050, failures.rbegin()->first);
    EXPECT_LT(last.size(), 120U);
    EXPECT_EQ(last.find('%'), last.find("%s"));
    EXPECT_EQ(last.find('%'), last.rfind('%'));
  }
}

}  // namespace
