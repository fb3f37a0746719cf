#include <chrono>
#include <thread>

#include "check/checked_module.h"

namespace check {
namespace {

using standin::ListOwner;
using standin::StringList;

constexpr const char* kNothing = "no alert";
/// The key of code 17, because only the first 31 characters of a key count.
constexpr const char* kLongKey = "00000000000000000000000000000179";
constexpr const char* kDefault = "The operation failed (%s).";

int32_t Code(const std::string& text) {
  return text[0] << 24 | text[1] << 16 | text[2] << 8 | text[3];
}

/// A module whose start-ups the host refuses with any code, which the module then reports.
struct ReportingModule : CheckedModule {
  ReportingModule() {
    SetOwnTexts(kDefault);
    StringList hostTexts;
    for (const int32_t code : {9, 10, 17, 899, 900}) hostTexts[code] = "Host's %s text";
    host.Lists().Replace(ListOwner::kHost, 257, hostTexts);
  }
  ~ReportingModule() override { ExpectNothingLeft(); }

  void SetOwnTexts(const std::string& defaultText) {
    StringList list;
    int32_t index = 0;
    for (const std::string entry : {"-43", "Gone is file %d.", kLongKey, "Own text", "907", "Nine",
                                    "o1", "Short", "!MEM", defaultText.c_str()})
      list[++index] = entry;
    host.Lists().Replace(ListOwner::kPlugin, 16050, list);
  }

  void ExpectShown(int32_t code, const std::string& text) {
    const Trying trying("code " + CodeText(ResultCode{code}));
    person.alerts.clear();
    host.Operations().Refuse("QP Plug-ins Suite/SetPluginName", ResultCode{code});
    Expect("the answer", module.StartUp(), ResultCode{code});
    Expect("the alert", person.alerts.empty() ? kNothing : person.alerts.back(), text);
  }
};

CHECK("report/finds-text-of-code") {
  ReportingModule reporting;
  const std::pair<int32_t, const char*> cases[] = {
      {-43, "Gone is file %d."},
      {907, "Nine"},
      {17, "Own text"},
      {'o' << 24 | '1' << 16, "Short"},
      {Code("!MEM"), kDefault},
      {Code("Gone"), "The operation failed (Gone)."},
      {Code("PARM"), "The operation failed (PARM)."},
      {9, "The operation failed (9)."},
      {10, "Host's %s text"},
      {899, "Host's %s text"},
      {900, "The operation failed (900)."},
      {INT32_MIN, "The operation failed (-21474836)."},
      {16384, "The operation failed (16384)."},
      {16385, "The operation failed (16385)."},  // its four bytes cannot be displayed
      {Code("!MEM") | 0x80, "The operation failed (558712269)."},
      {INT32_MAX, "The operation failed (2147483647)."},
      {362, "The operation failed (362)."},
  };
  for (const auto& [code, text] : cases) reporting.ExpectShown(code, text);
  auto& operations = reporting.host.Operations();
  Expect("disposed strings", operations.Calls("VX Unicode String Suite/Dispose"),
         operations.Calls("VX Unicode String Suite/CreateFromText"));
}

CHECK("report/shows-nothing-for-silent-codes") {
  ReportingModule reporting;
  for (const char* silent :
       {"FMT?", "RFSE", "AFTR", "VALD", "MOOT", "TRSH", "CHEK", "CHIT", "TLTK", "pFls", "S!Fd",
        "!Acq", "Bchn", "dsRP", "skpE", "DONE", "ASTR", "STOP"})
    reporting.ExpectShown(Code(silent), kNothing);
  reporting.ExpectShown(361, kNothing);
}

CHECK("report/formats-texts-with-one-placeholder") {
  ReportingModule reporting;
  const std::string text119 = "%s" + std::string(117, 'y');
  const std::pair<std::string, std::string> cases[] = {
      {text119, "12" + std::string(117, 'y')},
      {text119 + 'y', text119 + 'y'},
      {"100%% [%4s]", "100% [  12]"},
      {"%1000s", std::string(255, ' ')},
      {"%n%s", "%n%s"},
      {"%10000s", "%10000s"},
      {"%s%s", "%s%s"},
      {"100 %", "100 %"},
      {"no code, 100%%", "no code, 100%%"},
  };
  for (const auto& [text, shown] : cases) {
    reporting.SetOwnTexts(text);
    reporting.ExpectShown(12, shown);
  }
}

CHECK("report/searches-whole-list") {
  ReportingModule reporting;
  const auto showsAt = [&](int32_t last, int32_t code, const std::string& text) {
    StringList list;
    for (int32_t index = 1; index < last; index += 2) {
      list[index] = "none";
      list[index + 1] = index < 32767 ? "Far too many (%s)." : "No index of 16 bits";
    }
    list[last] = "77";
    list[last + 1] = "The last";
    reporting.host.Lists().Replace(ListOwner::kPlugin, 16050, list);
    reporting.ExpectShown(code, text);
  };
  showsAt(32765, 77, "The last");
  showsAt(40001, 1012, "Far too many (1012).");
  const size_t calls = reporting.host.Operations().Calls("KDM Basic Suite/GetListString");
  constexpr size_t kMostCalls = 34000;
  if (calls > kMostCalls) Expect("texts asked for", calls, kMostCalls);
}

CHECK("report/shows-nothing-without-texts") {
  ReportingModule reporting;
  reporting.host.Lists().Replace(ListOwner::kPlugin, 16050, {});
  reporting.ExpectShown(9, kNothing);
  Expect("texts asked for", reporting.host.Operations().Calls("KDM Basic Suite/GetListString"), 1u);
  reporting.ExpectShown(12, kNothing);
  reporting.ExpectShown(17, "Host's %s text");
  reporting.host.Operations().Refuse("VX Unicode String Suite/CreateFromText", kCannot);
  reporting.ExpectShown(17, kNothing);
}

// A running plug-in does not show the code of the previous alert again within five seconds.
CHECK("report/suppresses-repeated-alerts") {
  RunningModule running;
  const auto fail = [&](int32_t code, size_t alerts, const char* what) {
    running.host.Operations().Refuse("acquire/VX Context Suite", ResultCode{code});
    Expect("the answer", running.module.Send(messages::kReload), ResultCode{code});
    Expect(what, running.person.alerts.size(), alerts);
  };
  Expect("the unload", running.module.Send(messages::kUnload), kSuccess);
  fail(12, 1, "alerts after the first failure");
  fail(12, 1, "alerts after the same");
  fail(13, 2, "alerts after another");
  fail(Code("STOP"), 2, "alerts after a silent one");
  fail(13, 2, "alerts after the code before the silent one");
  fail(12, 3, "alerts after the first again");
}

// The module counts whole seconds.
CHECK("report/repeats-alerts-after-five-seconds") {
  using std::chrono::milliseconds;
  RunningModule running;
  Expect("the unload", running.module.Send(messages::kUnload), kSuccess);
  const auto begin = std::chrono::steady_clock::now();
  for (const milliseconds wait : {milliseconds(0), milliseconds(3900), milliseconds(5050)}) {
    std::this_thread::sleep_until(begin + wait);
    running.host.Operations().Refuse("acquire/VX Context Suite", kRefused);
    Expect("the answer", running.module.Send(messages::kReload), kRefused);
    const bool isLate = std::chrono::steady_clock::now() > begin + milliseconds(5000);
    // Under load the second can come too late.
    if (wait.count() != 3900 || !isLate)
      Expect("alerts", running.person.alerts.size(), isLate ? 2u : 1u);
  }
}

}  // namespace
}  // namespace check
