#include <boost/smart_ptr/make_shared.hpp>

#include "platform/standin/sheet_service.h"
#include "platform/vxui/sheet_holder.h"
#include "standin/host_test.h"

namespace {

using nrvcore::geom::RectT;

class SheetTest : public HostTest {
 protected:
  SheetTest() { resources.Write("layouts/7.xml", R"(<sheet><number id="a"/></sheet>)"); }

  boost::shared_ptr<SheetHolder> Create(std::uint32_t number) {
    return host.Sheets().Factory()->CreateSheetHolder(plugin, number, u"Dark");
  }
};

TEST_F(SheetTest, FactoryBuildsAfreshOrSaysWhyNot) {
  EXPECT_EQ(Create(8), nullptr);
  EXPECT_TRUE(host.ResourceProblems().back().ends_with("8.xml: there is no such file"));
  resources.Write("layouts/8.xml", "<sheet>\n<knob/></sheet>");
  EXPECT_EQ(Create(8), nullptr);
  EXPECT_TRUE(host.ResourceProblems().back().ends_with("8.xml:2: unknown element <knob>"));
  EXPECT_NE(Create(7)->GetSheetView(), Create(7)->GetSheetView());
  EXPECT_EQ(host.Sheets().CreateSheetHolder(host.HostModule(), 7, u""), nullptr);
}

TEST_F(SheetTest, LeftoversTellWhatOutlivesItsHolderAndCallbacksGoWithIt) {
  int notified = 0;
  auto holder = Create(7);
  const auto sheet = holder->GetSheet();
  const auto layout = holder->GetLayoutNode();
  layout->UI_InstallSizeChangedNotifyFunction(
      boost::make_shared<boost::function<void()>>([&] { ++notified; }));
  layout->UI_SetLocalRectF({0, 0, 1000, 1000});
  EXPECT_EQ(notified, 1);
  holder.reset();
  layout->UI_SetLocalRectF({0, 0, 2000, 2000});
  EXPECT_EQ(notified, 1);
  // The layout node and the field in it.
  EXPECT_EQ(host.Leftovers(), (Lines{"1 sheets are alive", "2 nodes of sheets are alive"}));
}

TEST_F(SheetTest, TheLayoutTakesTheRoomThatItGetsButNotLessThanItNeeds) {
  const auto holder = Create(7);
  const auto layout = holder->GetLayoutNode();
  const RectT<float> natural = layout->UI_GetLocalRectF(false);
  EXPECT_EQ(holder->GetSheetView()->UI_GetLocalRectF(false), natural);
  holder->ResizeSheet(4000, -5);
  EXPECT_EQ(layout->UI_GetLocalRectF(false), (RectT<float>{0, 0, 4000, natural.bottom}));
  holder->ResizeSheet(1, 1);
  EXPECT_EQ(layout->UI_GetLocalRectF(false), natural);

  const RectT<float> measured = {0, 0, 50, 300};
  layout->UI_SetLocalRectF(measured);
  holder->ResizeSheet(10, 10);
  EXPECT_EQ(layout->UI_GetLocalRectF(false), measured) << "a presenter knows better";
}

}  // namespace
