#include "platform/standin/host.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <stdexcept>

#include "platform/nrvui/ui_controls.h"
#include "platform/qpbasic/ledger.h"
#include "platform/qpbasic/qpbasic.h"
#include "platform/standin/host_codes.h"
#include "platform/standin/module.h"
#include "platform/standin/sheet_service.h"
#include "platform/vxui/dialogs.h"
#include "platform/vxui/host_interfaces.h"
#include "testkit/temporary_folder.h"

namespace {

using nrvcore::geom::RectT;
using nrvui::controls::ChangeNotifyFunction;
using nrvui::controls::UI_ControlView;
using standin::Module;
using standin::ScopedSuite;
using Lines = std::vector<std::string>;

constexpr ResultCode kDone = ResultCode::kSuccess;

/// A suite as a plug-in would publish it.
struct Greeting {
  static constexpr const char* kName = "Greeting Suite";
  static constexpr int32_t kVersion = 5;
};

/// A host with one plug-in, whose resource folder is empty until the test writes files.
class HostTest : public testing::Test {
 protected:
  boost::shared_ptr<SheetHolder> CreateSheet(std::uint32_t number) {
    return host.Sheets().CreateSheetHolder(plugin, number, u"Dark");
  }
  boost::shared_ptr<SheetHolder> CreateSheet() {
    resources.Write("layouts/7.xml", R"(<sheet width="30" height="20"><number id="a"/></sheet>)");
    return CreateSheet(7);
  }

  testkit::TemporaryFolder resources;
  standin::RecordingUserInterface screen;
  standin::Host host{screen, {resources.path, resources.path}};
  const PluginRef plugin = host.AddPlugin("plugin.so");
};

TEST_F(HostTest, SuitesAreFoundByNameAndVersionAndCountTheirUsers) {
  QPBasicSuite* const basic = host.BasicSuite();
  const char* const name = VXRealMathSuite::kName;
  const void* suite = &host;
  EXPECT_EQ(basic->Acquire("VX Real Math Suit", 1002, &suite), standin::kSuiteNotFound);
  EXPECT_EQ(basic->Acquire(name, 1001, &suite), standin::kSuiteVersion);
  EXPECT_EQ(suite, &host) << "a failed acquisition writes nothing";
  EXPECT_EQ(basic->Release("VX Real Math Suit", 1002), standin::kSuiteNotFound);
  EXPECT_EQ(basic->Release(name, 1001), standin::kSuiteVersion);
  EXPECT_EQ(basic->Release(name, 1002), standin::kSuiteNotHeld);
  ASSERT_EQ(basic->Acquire(name, 1002, &suite), kDone);
  EXPECT_EQ(static_cast<const VXRealMathSuite*>(suite)->Divide(1, 3), 1.0F / 3.0F);
  ASSERT_EQ(basic->Acquire(name, 1002, &suite), kDone);
  EXPECT_EQ(basic->Release(name, 1002), kDone);
  EXPECT_EQ(host.Leftovers(), Lines{"suite \"VX Real Math Suite\" 1002 has 1 users"});
  EXPECT_EQ(basic->Release(name, 1002), kDone);
  EXPECT_THROW(host.Suites().SetAbsent("No Such Suite"), std::invalid_argument);
  EXPECT_THROW(host.Operations().Refuse("VX User Suite/Typo", kDone), std::invalid_argument);
}

TEST_F(HostTest, LeftoversNameEachObjectThatThePluginKeeps) {
  const ScopedSuite<QPAccessSuite> access(host.Suites());
  const ScopedSuite<VXContextSuite> contexts(host.Suites());
  const ScopedSuite<VXUnicodeStringSuite> strings(host.Suites());
  AccessHandle held;
  ContextHandle context;
  StringHandle string = nullptr;
  ASSERT_EQ(ScopedSuite<QPPluginsSuite>(host.Suites())->SetPluginName(plugin, "Greeter"), kDone);
  ASSERT_EQ(access->AcquirePlugin(plugin, &held), kDone);
  ASSERT_EQ(contexts->PushAppContext(plugin, &context), kDone);
  ASSERT_EQ(strings->CreateFromText(&string, "hello, cut", 5, 0), kDone);
  const vx::ui::ModalContext run(true);
  const Lines left = host.Leftovers();
  ASSERT_EQ(left.size(), 7U) << "three suites come first";
  EXPECT_EQ(Lines(left.begin() + 3, left.end()),
            (Lines{"access to Greeter is held", "context of Greeter is open",
                   "string \"hello\" is not disposed of", "1 modal contexts are alive"}));
  host.RemovePlugin(plugin);
  EXPECT_FALSE(host.IsInUse(host.AddPlugin("other.so"))) << "it takes the freed place";
  EXPECT_EQ(host.Leftovers()[3], "access to plugin.so (removed) is held");
  EXPECT_EQ(access->AcquirePlugin(plugin, &held), standin::kUnknownPlugin);
}

TEST_F(HostTest, EachHandleIsReleasedOnceAndContextsInReverseOrder) {
  const ScopedSuite<QPAccessSuite> access(host.Suites());
  const ScopedSuite<VXContextSuite> contexts(host.Suites());
  const ScopedSuite<VXUnicodeStringSuite> strings(host.Suites());
  AccessHandle held;
  ContextHandle outer, inner;
  StringHandle string = nullptr;
  ASSERT_EQ(access->AcquirePlugin(plugin, &held), kDone);
  EXPECT_EQ(access->ReleasePlugin(held), kDone);
  EXPECT_EQ(access->ReleasePlugin(held), standin::kUnknownHandle);
  ASSERT_EQ(contexts->PushAppContext(plugin, &outer), kDone);
  ASSERT_EQ(contexts->PushAppContext(plugin, &inner), kDone);
  EXPECT_EQ(contexts->PopAppContext(outer), standin::kContextOrder);
  EXPECT_EQ(contexts->PopAppContext(inner), kDone);
  EXPECT_EQ(contexts->PopAppContext(outer), kDone);
  EXPECT_EQ(contexts->PopAppContext(nullptr), standin::kUnknownHandle);
  EXPECT_EQ(strings->CreateFromText(&string, "text", 4, 3), standin::kUnknownEncoding);
  ASSERT_EQ(strings->CreateFromText(&string, "text", 4, 0), kDone);
  StringHandle copy = string;
  EXPECT_EQ(strings->Dispose(&string), kDone);
  EXPECT_EQ(string, nullptr);
  EXPECT_EQ(strings->Dispose(&string), kDone) << "the empty string";
  EXPECT_EQ(strings->Dispose(&copy), standin::kUnknownHandle);
  EXPECT_EQ(host.Leftovers().size(), 3U) << "the suites";
}

TEST_F(HostTest, AlertShowsTheStringOrNothingForADisposedOne) {
  const ScopedSuite<VXUnicodeStringSuite> strings(host.Suites());
  const ScopedSuite<VXUserSuite> user(host.Suites());
  StringHandle string = nullptr;
  EXPECT_EQ(user->ShowErrorAlert(&string), kDone);
  ASSERT_EQ(strings->CreateFromText(&string, "hello", 5, 0), kDone);
  EXPECT_EQ(user->ShowErrorAlert(&string), kDone);
  EXPECT_EQ(screen.alerts, (Lines{"", "hello"}));
  StringHandle copy = string;
  EXPECT_EQ(strings->Dispose(&string), kDone);
  EXPECT_EQ(user->ShowErrorAlert(&copy), standin::kUnknownHandle);
}

TEST_F(HostTest, SuiteStaysHeldIfItsReleaseThrows) {
  host.Operations().Throw("release/VX User Suite", std::make_exception_ptr(std::bad_alloc()));
  EXPECT_TRUE(ScopedSuite<VXUserSuite>(host.Suites()));
  EXPECT_EQ(host.Leftovers(), Lines{"suite \"VX User Suite\" 1011 has 1 users"});
}

TEST(HostsInTurn, EachReportsOnlyItsOwnFaults) {
  standin::RecordingUserInterface screen;
  for (int i = 0; i < 2; ++i) {
    const standin::Host host(screen);
    EXPECT_EQ(host.Leftovers(), Lines{});
    EXPECT_EQ(QPBasicFreeBlock(&screen), qpbasic::kUnknownBlock);
    EXPECT_EQ(host.Leftovers().size(), 1U);
    EXPECT_THROW(standin::Host second(screen), std::logic_error);
  }
  EXPECT_THROW(standin::Host::Current(), std::logic_error);
}

TEST_F(HostTest, PublishedSuiteIsAvailableWhileItsPluginIsLoaded) {
  const Greeting greeting;
  SuiteHandle handle = nullptr;
  ScopedSuite<QPSuitesSuite> registry(host.Suites());
  ASSERT_EQ(registry->AddSuite(nullptr, plugin, Greeting::kName, 5, 1, &greeting, &handle), kDone);
  EXPECT_EQ(registry->AddSuite(nullptr, plugin, Greeting::kName, 5, 1, &greeting, &handle),
            standin::kSuiteExists);
  {
    const ScopedSuite<Greeting> held(host.Suites());
    EXPECT_EQ(held.operator->(), &greeting);
    EXPECT_TRUE(host.IsInUse(plugin));
  }
  plugin->isUnloaded = true;
  EXPECT_EQ(ScopedSuite<Greeting>(host.Suites()).Code(), standin::kNotLoaded);
  plugin->isUnloaded = false;
  const ScopedSuite<VXNotifierSuite> notifiers(host.Suites());
  NotifierHandle notifier = nullptr;
  ASSERT_EQ(notifiers->AddNotifier(plugin, "mine", "t", &notifier), kDone);
  ASSERT_EQ(notifiers->AddNotifier(host.AddPlugin("other.so"), "other", "t", nullptr), kDone);
  EXPECT_EQ(notifier->name, "mine");
  host.RemovePlugin(plugin);
  EXPECT_EQ(ScopedSuite<Greeting>(host.Suites()).Code(), standin::kSuiteNotFound);
  ASSERT_EQ(host.Objects().notifiers.Objects().size(), 1U);
  EXPECT_EQ(host.Objects().notifiers.Objects()[0]->name, "other");
}

TEST_F(HostTest, ListStringIsReadFromTheOwnersFileAndTruncatedToTheBuffer) {
  resources.Write("strings/5.txt", "1\tplug-in\n2\tgr\xC3\xBC\xC3\x9F\n4\t\xC3\xBC\n");
  resources.Write("host/5.txt", "1\thost\n");
  resources.Write("strings/6.txt", "1\tgood\nbad\n");
  std::filesystem::create_symlink("7.txt", resources.path / "strings/7.txt");
  const struct {
    ModuleRef owner;
    int32_t list, index;
    size_t size;
    ResultCode code;
    const char* text;
  } cases[] = {
      {plugin, 5, 3, 8, standin::kNoListEntry, "before"},
      {plugin, 7, 1, 8, standin::kDamagedList, "before"},  // a symbolic link to itself
      {plugin, 6, 1, 8, standin::kDamagedList, "before"},
      {nullptr, 5, 1, 8, standin::kUnknownPlugin, "before"},
      {plugin, 5, 1, 0, standin::kBadArgument, "before"},
      {plugin, 5, 1, 1, kDone, ""},
      {plugin, 5, 4, 2, kDone, ""},
      {plugin, 5, 1, 8, kDone, "plug-in"},     // fits with its terminator
      {plugin, 5, 2, 6, kDone, "gr\xC3\xBC"},  // truncated between characters
      {host.HostModule(), 5, 1, 8, kDone, "host"},
  };
  const ScopedSuite<KDMBasicSuite> lists(host.Suites());
  for (const auto& [owner, list, index, size, code, expected] : cases) {
    char text[8] = "before";
    EXPECT_EQ(lists->GetListString(owner, list, index, text, size), code);
    EXPECT_STREQ(text, expected);
  }
  const char* const reasons[] = {"7.txt: Too many levels of symbolic links",
                                 "6.txt:2: no tab between index and text"};
  for (size_t i = 0; i < std::size(reasons); ++i)
    EXPECT_TRUE(host.ResourceProblems().at(i).ends_with(reasons[i])) << reasons[i];
}

TEST_F(HostTest, ModuleFileWithoutEntryPointIsRefusedAndUnloaded) {
  Dl_info library;
  ASSERT_NE(dladdr(reinterpret_cast<void*>(&QPBasicFreeBlock), &library), 0);
  resources.Write("text.so", std::string(100, 'x'));
  const auto whole = resources.path / "whole.so";
  copy_file(library.dli_fname, whole);
  for (const auto& file : {resources.path / "missing.so", resources.path / "text.so", whole}) try {
      const Module module(host, file);
      ADD_FAILURE() << "no error: " << file;
    } catch (const standin::LoadError& error) {
      EXPECT_EQ(std::string_view(error.what()).find("unknown"), std::string_view::npos);
    }
  const void* const stays = dlopen(whole.c_str(), RTLD_NOW | RTLD_NOLOAD);
  EXPECT_EQ(stays, nullptr);
  EXPECT_EQ(host.Objects().modules.Objects().size(), 2U) << "the host's own and the fixture's";
}

TEST_F(HostTest, ModuleUnloadsOnlyWhenItAgreesAndNobodyHoldsIt) {
  static ResultCode answer;
  answer = ResultCode::kCannot;
  Module module(
      host, [](const char*, const char*, PluginMessage*) { return answer; }, "linked");
  EXPECT_EQ(module.Unload(), ResultCode::kCannot);
  EXPECT_TRUE(module.IsLoaded());
  answer = kDone;
  const Greeting greeting;
  host.Suites().Add(Greeting::kName, 5, &greeting, module.Ref());
  host.Objects().accesses.Add({module.Ref()});
  EXPECT_EQ(module.Unload(), standin::kPluginInUse);
  EXPECT_EQ(module.About(), kDone);
  host.Objects().accesses.RemoveIf([](const auto&) { return true; });
  EXPECT_EQ(module.Unload(), kDone);
  EXPECT_EQ(module.About(), standin::kNotLoaded);
  EXPECT_FALSE(ScopedSuite<Greeting>(host.Suites()));
  EXPECT_EQ(module.Unload(), standin::kNotLoaded);
  EXPECT_EQ(module.Reload(), kDone);
  EXPECT_EQ(module.About(), kDone);
  EXPECT_TRUE(ScopedSuite<Greeting>(host.Suites()));
}

TEST_F(HostTest, SheetIsBuiltForEachRequestOrTheProblemIsReported) {
  EXPECT_EQ(CreateSheet(8), nullptr);
  EXPECT_TRUE(host.ResourceProblems().back().ends_with("8.xml: there is no such file or folder"));
  resources.Write("layouts/8.xml", "<sheet>\n<knob/></sheet>");
  EXPECT_EQ(CreateSheet(8), nullptr);
  EXPECT_TRUE(host.ResourceProblems().back().ends_with("8.xml:2: unknown element <knob>"));
  EXPECT_NE(CreateSheet()->GetSheetView(), CreateSheet()->GetSheetView());
  EXPECT_EQ(host.Sheets().CreateSheetHolder(host.HostModule(), 7, u""), nullptr);
}

TEST_F(HostTest, NodesThatOutliveTheSheetHolderAreReportedAndCallNobody) {
  int notified = 0;
  auto holder = CreateSheet();
  const auto sheet = holder->GetSheet();
  const auto layout = holder->GetLayoutNode();
  layout->UI_InstallSizeChangedNotifyFunction(
      boost::make_shared<boost::function<void()>>([&] { ++notified; }));
  layout->UI_SetLocalRectF({0, 0, 1000, 1000});
  EXPECT_EQ(notified, 1);
  auto& field = dynamic_cast<UI_ControlView&>(**layout->ChildBegin());
  field.NotifyWhenChanged(boost::make_shared<ChangeNotifyFunction>([&](auto*) { ++notified; }));
  holder.reset();
  layout->UI_SetLocalRectF({0, 0, 2000, 2000});
  field.NotifyChangedByUser();
  EXPECT_EQ(notified, 1);
  // The layout node and the field in it.
  EXPECT_EQ(host.Leftovers(), (Lines{"1 sheets are alive", "2 nodes of sheets are alive"}));
}

TEST_F(HostTest, LayoutFollowsTheWindowDownToItsNaturalSize) {
  const auto holder = CreateSheet();
  const auto layout = holder->GetLayoutNode();
  const RectT<float> natural = {0, 0, 30, 20};
  EXPECT_EQ(holder->GetSheetView()->UI_GetLocalRectF(), natural);
  holder->ResizeSheet(4000, -5);
  EXPECT_EQ(layout->UI_GetLocalRectF(), (RectT<float>{0, 0, 4000, natural.bottom}));
  holder->ResizeSheet(1, 1);
  EXPECT_EQ(layout->UI_GetLocalRectF(), natural);

  const RectT<float> measured = {0, 0, 50, 300};
  layout->UI_SetLocalRectF(measured);
  holder->ResizeSheet(10, 10);
  EXPECT_EQ(layout->UI_GetLocalRectF(), measured) << "a presenter measured it";
}

}  // namespace
