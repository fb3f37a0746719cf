#include <algorithm>
#include <exception>
#include <new>
#include <stdexcept>
#include <string_view>

#include "check/session.h"
#include "host/error.h"
#include "platform/qpbasic/ledger.h"
#include "testkit/toolkit_memory.h"

// Every operation of the host, and every allocation, fails once at every place of whole sessions.
// Afterwards the same module must go through a whole life cycle as expected.

namespace check {
namespace {

using Lines = std::vector<std::string>;

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

using enum Answer;

/// The expected answers if an operation refuses and if it throws. The first row whose operation is
/// a prefix of the name applies.
struct Contract {
  std::string_view operation;
  Answer whenRefused;
  Answer whenThrown;
};

// Messages. In a report, nothing that fails is noticed.
constexpr Contract kMessageContracts[] = {
    {"acquire/", kItsCode, kItsCode},
    {"release/", kUnnoticed, kUnnoticed},
    {"QP Plug-ins Suite/SetPluginName", kItsCode, kItsCode},
    {"VX Notifier Suite/AddNotifier", kItsCode, kItsCode},
    {"VX Context Suite/PushAppContext", kUnnoticed, kItsCode},
    {"VX Context Suite/PopAppContext", kUnnoticed, kUnnoticed},
    {"KDM Basic Suite/", kUnnoticed, kItsCode},
    {"QP Blocks Suite/AllocateBlock", kIsParameter, kIsParameter},
    {"QP Blocks Suite/FreeBlock", kItsCode, kItsCode},
    {"QP Suites Suite/AddSuite", kItsCode, kIsParameter},
};

// Dialogs. Without a suite for its ratio, the button changes nothing; without the drawing supplier,
// the toolkit draws with its own.
constexpr Contract kDialogContracts[] = {
    {"acquire/", kEither, kIsCannot},
    {"release/", kUnnoticed, kEither},
    {"VX User Interface Main Suite/GetSheetFactory", kIsCannot, kIsCannot},
    {"Sheet Factory/CreateSheetHolder", kIsCannot, kIsCannot},
    {"Sheet Holder/GetSheetView", kEither, kIsCannot},
    {"", kUnnoticed, kIsCannot},
};

template <size_t kCount>
Answer AnswerOf(const Contract (&contracts)[kCount], const std::string& operation, bool isThrown) {
  for (const Contract& contract : contracts)
    if (operation.starts_with(contract.operation))
      return isThrown ? contract.whenThrown : contract.whenRefused;
  return kUnnoticed;
}

/// Runs with the fault in place, and then a life cycle without it. `expectLeft` judges what the
/// first run leaves; the second must leave no more.
void RunWithFailure(const Sequence& sequence, Session& session,
                    const std::function<void(const Lines& left)>& expectLeft) {
  (session.*sequence.run)();
  const Lines left = session.host.Leftovers();
  expectLeft(left);
  session.Restore();
  const Trying trying("a life cycle afterwards");
  session.RunLifeCycle();
  Expect("goes as it does without faults", session.WentAsExpected());
  for (const std::string& line : session.host.Leftovers())
    if (std::ranges::find(left, line) == left.end()) Fail("left: " + line);
}

/// What may be left when an operation failed that would have taken it back.
constexpr std::pair<std::string_view, std::string_view> kOwed[] = {
    {"release/", "suite \""},
    // The host may have kept the table of a suite that it refused, so the block is left to it.
    {"QP Suites Suite/AddSuite", "(TesseraeUI)"},
    // Without its table freed, a plug-in goes at once and leaves its suites held, with their set.
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
  const bool throws = failure.exception != nullptr;
  session.fault =
      HostFault{operation, call, failure.code, AnswerOf(kMessageContracts, operation, throws),
                AnswerOf(kDialogContracts, operation, throws)};
  auto& operations = session.host.Operations();
  if (throws) {
    operations.Throw(operation, failure.exception, call);
  } else {
    operations.Refuse(operation, failure.code, call);
  }
  RunWithFailure(sequence, session, [&](const Lines& left) {
    for (const std::string& line : left) {
      const bool isOwed = std::ranges::any_of(kOwed, [&](const auto& owed) {
        return operation.starts_with(owed.first) && line.find(owed.second) != line.npos &&
               !(operation == "QP Suites Suite/AddSuite" && throws);
      });
      if (!isOwed) Fail("left: " + line);
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
  // Nothing locks this plug-in; all else must be part of a session.
  const bool locks =
      operation == "QP Access Suite/AcquirePlugin" || operation == "QP Access Suite/ReleasePlugin";
  Expect("is called", allCalls > 0, !locks);
}

/// Refuses every n-th allocation, n growing by `step`, until a session gets through all of them.
/// `refuse` begins with a refusal, and `wasRefused` ends it and says whether it happened.
void RefuseOneByOne(size_t step,
                    const std::function<void(Session& session, size_t countdown)>& refuse,
                    const std::function<bool()>& wasRefused) {
  for (const Sequence& sequence : kSequences) {
    size_t place = 1;
    for (bool goesOn = true; goesOn && !HasFailed(); place += step) {
      const Trying trying(std::string(sequence.name) + ", allocation " + std::to_string(place));
      Session session;
      refuse(session, place);
      RunWithFailure(sequence, session, [&](const Lines& left) {
        goesOn = wasRefused();
        if (!goesOn) Expect("goes as expected", session.WentAsExpected());
        Expect("what is left", left, Lines());
      });
    }
    Expect("allocations enough to say something", place > std::max<size_t>(50, 10 * step));
  }
}

void RefuseBlocks(ResultCode code) {
  qpbasic::Ledger& ledger = qpbasic::Ledger::Get();
  size_t refusals = 0;
  const auto refuse = [&](Session& session, size_t countdown) {
    refusals = ledger.Counts().refusals;
    session.strikes = [&] { return ledger.Counts().refusals; };
    session.answersWhenStruck = {kOutOfMemory, kParameter};
    ledger.Refuse({.countdown = countdown, .once = true, .code = code});
  };
  RefuseOneByOne(Step(), refuse, [&] {
    ledger.RefuseNothing();
    return ledger.Counts().refusals != refusals;
  });
}

std::vector<std::string> OperationsOfTheHost() {
  standin::RecordingUserInterface person;
  return standin::Host(person).Operations().Names();
}

}  // namespace

void AddFaultChecks(const Add& add) {
  for (const std::string& operation : OperationsOfTheHost()) {
    std::string name = "faults/" + operation;
    std::ranges::replace(name, ' ', '-');
    add(name, [operation] { FailOnceAtEveryCall(operation); });
  }
  add("memory/blocks-are-refused", [] { RefuseBlocks(kOutOfMemory); });
  add("memory/blocks-do-not-come", [] { RefuseBlocks(kSuccess); });
  add("memory/toolkit-has-none", [] {
    const auto refuse = [](Session& session, size_t countdown) {
      toolkit_memory::untilRefusal = countdown;
      session.strikes = [] { return toolkit_memory::untilRefusal == 0; };
      session.answersWhenStruck = {kOutOfMemory, kCannot, kParameter};
      session.mayGoUnnoticed = true;
      session.onCall = [](bool isInside) { toolkit_memory::isArmed = isInside; };
    };
    RefuseOneByOne(Step(17), refuse,
                   [] { return std::exchange(toolkit_memory::untilRefusal, 0) == 0; });
  });
}

}  // namespace check
