#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>

#include "platform/nrvui/os_view.h"
#include "platform/standin/held_suite.h"
#include "platform/standin/sheet_service.h"
#include "platform/vxui/sheet_holder.h"
#include "tests/standin/temporary_folder.h"

namespace {

using nrvcore::geom::RectT;

class SheetTest : public testing::Test {
 protected:
  SheetTest() { resources.Write("layouts/7.xml", R"(<sheet><number id="a"/></sheet>)"); }

  boost::shared_ptr<SheetHolder> Create(std::uint32_t number) {
    SheetFactory* factory = nullptr;
    EXPECT_EQ(standin::HeldSuite<VXUserInterfaceMainSuite>(host)->GetSheetFactory(&factory),
              ResultCode::kSuccess);
    return factory->CreateSheetHolder(plugin, number, u"Dark");
  }

  TemporaryFolder resources;
  standin::RecordingUserInterface screen;
  standin::Host host{screen, resources.path};
  const PluginRef plugin = host.AddPlugin("plugin.so");
};

TEST_F(SheetTest, FactoryBuildsAfreshOrSaysWhyNot) {
  EXPECT_EQ(Create(8), nullptr);
  ASSERT_EQ(host.ResourceProblems().size(), 1U);
  EXPECT_TRUE(host.ResourceProblems()[0].ends_with("8.xml: there is no such file"));
  resources.Write("layouts/8.xml", "<sheet>\n<knob/></sheet>");
  EXPECT_EQ(Create(8), nullptr);
  EXPECT_TRUE(host.ResourceProblems().back().ends_with("8.xml:2: unknown element <knob>"));
  resources.Write("layouts/8.xml", "<sheet/>");
  EXPECT_NE(Create(8), nullptr);

  const auto first = Create(7);
  const auto second = Create(7);
  EXPECT_NE(first->GetSheetView(), second->GetSheetView());
  EXPECT_EQ(first->GetInitialFocus(), nullptr);
  EXPECT_EQ(host.Sheets().LastTheme(), u"Dark");
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
  EXPECT_EQ(host.Leftovers().size(), 3U);
  holder.reset();
  layout->UI_SetLocalRectF({0, 0, 2000, 2000});
  EXPECT_EQ(notified, 1);
  // The layout node and the field in it.
  EXPECT_EQ(host.Leftovers(),
            (std::vector<std::string>{"1 sheets are alive", "2 nodes of sheets are alive"}));
}

TEST_F(SheetTest, TheLayoutTakesTheRoomThatItGetsButNotLessThanItNeeds) {
  const auto holder = Create(7);
  const auto layout = holder->GetLayoutNode();
  const RectT<float> natural = layout->UI_GetLocalRectF(false);
  EXPECT_EQ(holder->GetSheetView()->UI_GetLocalRectF(false), natural);
  ASSERT_GT(natural.right, 0);
  holder->ResizeSheet(0, -5);
  EXPECT_EQ(layout->UI_GetLocalRectF(false), natural);
  holder->ResizeSheet(4000, 1);
  EXPECT_EQ(layout->UI_GetLocalRectF(false), (RectT<float>{0, 0, 4000, natural.bottom}));
  holder->ResizeSheet(1, 1);
  EXPECT_EQ(layout->UI_GetLocalRectF(false), natural);

  const RectT<float> measured = {0, 0, 50, 300};
  layout->UI_SetLocalRectF(measured);
  holder->ResizeSheet(10, 10);
  EXPECT_EQ(layout->UI_GetLocalRectF(false), measured) << "a presenter knows better";
  holder->ResizeSheet(60, 10);
  EXPECT_EQ(layout->UI_GetLocalRectF(false), (RectT<float>{0, 0, 60, 300}));
}

TEST_F(SheetTest, RefusedOperationsGiveNothing) {
  const auto holder = Create(7);
  const auto refuse = [this](const char* name) { host.Operations().Refuse(name, ResultCode{1}); };
  refuse("Sheet Factory/CreateSheetHolder");
  EXPECT_EQ(Create(7), nullptr);
  refuse("Sheet Holder/GetSheetView");
  EXPECT_EQ(holder->GetSheetView(), nullptr);
  refuse("Sheet Holder/GetSheet");
  EXPECT_EQ(holder->GetSheet(), nullptr);
  refuse("Drawing Supplier Source/GetDrawingSupplier");
  EXPECT_EQ(host.Sheets().GetDrawingSupplier(), nullptr);
  EXPECT_NE(host.Sheets().GetDrawingSupplier(), nullptr);
  const nrvui::ui::OS_View view;
  refuse("Sheet Factory/RegisterDialogView");
  host.Sheets().RegisterDialogView(const_cast<nrvui::ui::OS_View*>(&view));
  EXPECT_EQ(host.Sheets().LastDialogView(), nullptr);
}

}  // namespace
