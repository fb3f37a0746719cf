#include <algorithm>
#include <exception>
#include <new>
#include <stdexcept>
#include <string_view>

#include "check/session.h"
#include "host/error.h"
#include "platform/qpbasic/ledger.h"
#include "testkit/toolkit_memory.h"

// Each call of the host's operations and each allocation fails once during a session. Afterwards
// the same module must go through a life cycle without failures.

namespace check {
namespace {

struct Sequence {
  const char* name;
  void (Session::*run)();
};

constexpr Sequence kSequences[] = {
    {"life cycle", &Session::RunLifeCycle},
    {"failures", &Session::RunFailures},
};

constexpr ResultCode kThrown{FourCharCode("thrn")};

/// A way in which an operation can fail.
struct Failure {
  const char* name;
  ResultCode code;
  std::exception_ptr exception;  // null: the operation is refused with `code`
};

const Failure kFailures[] = {
    {"refused", kRefused, nullptr},
    {"std::bad_alloc", kOutOfMemory, std::make_exception_ptr(std::bad_alloc())},
    {"vx::Error", kThrown, std::make_exception_ptr(vx::Error(kThrown))},
    {"std::runtime_error", kCannot, std::make_exception_ptr(std::runtime_error("x"))},
    {"int", kCannot, std::make_exception_ptr(7)},
};

/// What a message or a dialog answers during which an operation fails.
enum Answer {
  kUnnoticed,  // as if it had not failed
  kItsCode,    // the code of the refusal or the exception
  kIsParameter,
  kIsCannot,
  kIsCannotOrUnnoticed,
};

/// The answers when an operation is refused and when it throws, in a message and in a dialog. An
/// operation has the first row with the beginning of its name.
struct Contract {
  struct Answers {
    Answer whenRefused, whenThrown;
  };
  std::string_view operation;
  Answers inMessage = {kUnnoticed, kUnnoticed};
  Answers inDialog = {kUnnoticed, kIsCannot};
};

// Without a suite for its arithmetic, the ratio button changes nothing; without the drawing
// supplier, the toolkit draws with its own.
constexpr Contract kContracts[] = {
    {"acquire/", {kItsCode, kItsCode}, {kIsCannotOrUnnoticed, kIsCannot}},
    {"release/", {kUnnoticed, kUnnoticed}, {kUnnoticed, kIsCannotOrUnnoticed}},
    {"QP Plug-ins Suite/SetPluginName", {kItsCode, kItsCode}},
    {"VX Notifier Suite/AddNotifier", {kItsCode, kItsCode}},
    {"VX Context Suite/PushAppContext", {kUnnoticed, kItsCode}},
    {"VX Context Suite/PopAppContext", {kUnnoticed, kUnnoticed}},
    {"KDM Basic Suite/", {kUnnoticed, kItsCode}},
    {"QP Blocks Suite/AllocateBlock", {kIsParameter, kIsParameter}},
    {"QP Blocks Suite/FreeBlock", {kItsCode, kItsCode}},
    {"QP Suites Suite/AddSuite", {kItsCode, kIsParameter}},
    {"VX User Interface Main Suite/GetSheetFactory", {}, {kIsCannot, kIsCannot}},
    {"Sheet Factory/CreateSheetHolder", {}, {kIsCannot, kIsCannot}},
    {"Sheet Holder/GetSheetView", {}, {kIsCannotOrUnnoticed, kIsCannot}},
    {""},
};

std::vector<ResultCode> Allowed(const std::string& operation, const Failure& failure, bool isDialog,
                                ResultCode expected) {
  const Contract& contract = *std::ranges::find_if(
      kContracts, [&](auto& row) { return operation.starts_with(row.operation); });
  const auto& answers = isDialog ? contract.inDialog : contract.inMessage;
  switch (failure.exception ? answers.whenThrown : answers.whenRefused) {
    case kUnnoticed:
      return {expected};
    case kItsCode:
      return {failure.code};
    case kIsParameter:
      return {kParameter};
    case kIsCannot:
      return {kCannot};
    case kIsCannotOrUnnoticed:
      return {expected, kCannot};
  }
  return {};
}

/// Runs the sequence with the failure, and then a life cycle without it. `expectLeft` checks what
/// the sequence leaves; the life cycle must leave nothing more.
void RunWithFailure(const Sequence& sequence, Session& session,
                    const std::function<void(const Calls& left)>& expectLeft) {
  (session.*sequence.run)();
  const Calls left = session.host.Leftovers();
  expectLeft(left);
  session.Restore();
  const Trying trying("a life cycle afterwards");
  session.RunLifeCycle();
  Expect("goes as it does without faults", session.WentAsExpected());
  for (const std::string& line : session.host.Leftovers())
    if (std::ranges::find(left, line) == left.end()) Fail("left: " + line);
}

/// What may be left after an operation failed: a part of the operation's name, and a part of what
/// is left.
constexpr std::pair<std::string_view, std::string_view> kMayBeLeft[] = {
    {"release/", "suite \""},
    // The host may have kept the address of the table that it refused, so the block stays.
    {"QP Suites Suite/AddSuite", "(TesseraeUI)"},
    // A shut-down that cannot free the table ends at once and keeps its suites, with their set.
    {"QP Blocks Suite/FreeBlock", "(TesseraeUI)"},
    {"QP Blocks Suite/FreeBlock", "of 12 bytes"},
    {"QP Blocks Suite/FreeBlock", "suite \""},
    {"VX Context Suite/PopAppContext", "context of "},
    {"VX Unicode String Suite/Dispose", "string \""},
};

/// Runs the sequence with the operation's call failing.
void FailCall(const Sequence& sequence, const std::string& operation, size_t call,
              const Failure& failure) {
  const Trying trying(std::string(sequence.name) + ", call " + std::to_string(call) + " of " +
                      operation + ": " + failure.name);
  Session session;
  auto& operations = session.host.Operations();
  session.failing.strikes = [&] { return operations.InjectedFaults(); };
  session.failing.answers = [&](bool isDialog, ResultCode expected) {
    return Allowed(operation, failure, isDialog, expected);
  };
  if (failure.exception) {
    operations.Throw(operation, failure.exception, call);
  } else {
    operations.Refuse(operation, failure.code, call);
  }
  RunWithFailure(sequence, session, [&](const Calls& left) {
    for (const std::string& line : left) {
      const bool mayBeLeft = std::ranges::any_of(kMayBeLeft, [&](const auto& row) {
        return operation.starts_with(row.first) && line.find(row.second) != line.npos &&
               !(operation == "QP Suites Suite/AddSuite" && failure.exception);
      });
      if (!mayBeLeft) Fail("left: " + line);
    }
  });
  Expect("calls that failed", operations.InjectedFaults(), 1u);
}

/// How often the operation is called in the sequence when nothing fails.
size_t CallsIn(const Sequence& sequence, const std::string& operation) {
  const Trying trying(sequence.name);
  Session session;
  (session.*sequence.run)();
  Expect("goes as expected", session.WentAsExpected());
  session.ExpectNothingLeft();
  return session.host.Operations().Calls(operation);
}

void FailOnceAtEveryCall(const std::string& operation) {
  size_t faults = 0;
  size_t allCalls = 0;
  for (const Sequence& sequence : kSequences) {
    const size_t calls = CallsIn(sequence, operation);
    allCalls += calls;
    for (size_t call = 1; call <= calls; ++call)
      for (const Failure& failure : kFailures)
        if (faults++ % Step() == 0 && !HasFailed()) FailCall(sequence, operation, call, failure);
  }
  // Sessions call every operation but those that lock a plug-in.
  const bool locks =
      operation == "QP Access Suite/AcquirePlugin" || operation == "QP Access Suite/ReleasePlugin";
  Expect("is called", allCalls > 0, !locks);
}

/// Lets each `step`-th allocation fail, one per session, until a session has no more of them.
/// `refuse` makes the allocation `countdown` from now fail.
void RefuseOneByOne(size_t step, const std::function<Failing(size_t countdown)>& refuse) {
  for (const Sequence& sequence : kSequences) {
    size_t place = 1;
    for (bool wasRefused = true; wasRefused && !HasFailed(); place += step) {
      const Trying trying(std::string(sequence.name) + ", allocation " + std::to_string(place));
      Session session;
      session.failing = refuse(place);
      session.failing.isAnywhere = true;
      RunWithFailure(sequence, session, [&](const Calls& left) {
        wasRefused = session.failing.strikes() > 0;
        toolkit_memory::untilRefusal = 0;
        qpbasic::Ledger::Get().ClearRefusal();
        if (!wasRefused) Expect("goes as expected", session.WentAsExpected());
        Expect("what is left", left, Calls());
      });
    }
    Expect("there are enough allocations", place > std::max<size_t>(50, 10 * step));
  }
}

void RefuseBlocks(ResultCode code) {
  RefuseOneByOne(Step(), [code](size_t countdown) {
    qpbasic::Ledger& ledger = qpbasic::Ledger::Get();
    ledger.Refuse({.countdown = countdown, .once = true, .code = code});
    return Failing{.strikes =
                       [&ledger, before = ledger.Counts().refusals] {
                         return ledger.Counts().refusals - before;
                       },
                   .answers = [](bool isDialog, ResultCode) -> std::vector<ResultCode> {
                     if (isDialog) return {kCannot};
                     return {kOutOfMemory, kParameter};
                   }};
  });
}

CHECK("memory/blocks-are-refused") {
  RefuseBlocks(kOutOfMemory);
}

CHECK("memory/blocks-are-missing-after-success") {
  RefuseBlocks(kSuccess);
}

CHECK("memory/toolkit-has-none") {
  RefuseOneByOne(Step(17), [](size_t countdown) {
    toolkit_memory::untilRefusal = countdown;
    return Failing{.strikes = [] { return size_t{toolkit_memory::untilRefusal == 0}; },
                   .answers = [](bool isDialog, ResultCode expected) -> std::vector<ResultCode> {
                     if (isDialog) return {expected, kCannot};
                     return {expected, kOutOfMemory, kCannot, kParameter};
                   },
                   .onCall = [](bool isInside) { toolkit_memory::isArmed = isInside; }};
  });
}

/// One check for each operation of the host.
const Registration kFaultChecks([](const Add& add) {
  standin::RecordingUserInterface person;
  for (const std::string& operation : standin::Host(person).Operations().Names()) {
    std::string name = "faults/" + operation;
    std::ranges::replace(name, ' ', '-');
    add(name, [operation] { FailOnceAtEveryCall(operation); });
  }
});

}  // namespace
}  // namespace check
