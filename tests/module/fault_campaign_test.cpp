#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "host/error.h"
#include "platform/qpbasic/ledger.h"
#include "tests/module/session.h"
#include "tests/module/toolkit_memory.h"
#include "tests/support/campaign.h"

// Every fault that the host or the toolkit can cause is caused once, at every place of whole
// sessions. Afterwards the same module must get through a whole life cycle as expected.

namespace {

using Lines = std::vector<std::string>;

struct Sequence {
  const char* name;
  Session::Sequence run;
};

constexpr Sequence kSequences[] = {
    {"life cycle", &Session::RunLifeCycle},
    {"failures", &Session::RunFailures},
};

constexpr ResultCode kRefused{FourCharCode("rfsd")};
constexpr ResultCode kThrown{FourCharCode("thrn")};

struct Fault {
  const char* name;
  ResultCode answer;             // of a message in which it happens
  std::exception_ptr exception;  // null: the operation is refused with `answer`
};

const Fault kFaults[] = {
    {"refused", kRefused, nullptr},
    {"std::bad_alloc", ResultCode::kOutOfMemory, std::make_exception_ptr(std::bad_alloc())},
    {"vx::Error", kThrown, std::make_exception_ptr(vx::Error(kThrown))},
    {"std::runtime_error", ResultCode::kCannot, std::make_exception_ptr(std::runtime_error("x"))},
    {"int", ResultCode::kCannot, std::make_exception_ptr(7)},
};

/// Runs with the fault in place, and then a life cycle without it. `expectLeft` judges what the
/// first run leaves; the second must leave no more.
void RunDisturbed(const Sequence& sequence, Session& session,
                  const std::function<void(const Lines& left)>& expectLeft) {
  (session.*sequence.run)();
  const Lines left = session.host.Leftovers();
  expectLeft(left);
  session.Restore();
  session.RunLifeCycle();
  EXPECT_TRUE(session.WentAsExpected()) << "the module has not recovered";
  for (const std::string& line : session.host.Leftovers())
    EXPECT_TRUE(std::ranges::find(left, line) != left.end()) << line;
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
void DisturbCall(const Sequence& sequence, const std::string& operation, size_t call,
                 const Fault& fault) {
  SCOPED_TRACE(std::string(sequence.name) + ", " + operation + ", call " + std::to_string(call) +
               ", " + fault.name);
  Session session;
  session.allowed = {fault.answer};
  // What goes wrong with the suite's table or its registration has one code, but for a refusal.
  const bool adds = operation == "QP Suites Suite/AddSuite";
  if (operation == "QP Blocks Suite/AllocateBlock" || (adds && fault.exception))
    session.allowed = {ResultCode::kParameter};
  auto& operations = session.host.Operations();
  if (fault.exception) {
    operations.Throw(operation, fault.exception, call);
  } else {
    operations.Refuse(operation, fault.answer, call);
  }
  RunDisturbed(sequence, session, [&](const Lines& left) {
    for (const std::string& line : left) {
      EXPECT_TRUE(std::ranges::any_of(kOwed, [&](const auto& owed) {
        return operation.starts_with(owed.first) && line.find(owed.second) != line.npos &&
               !(adds && fault.exception);
      })) << line;
    }
  });
  EXPECT_EQ(operations.Disturbed(), 1u);
}

/// How often each operation is called in the sequence when nothing fails.
std::map<std::string, size_t> CallsIn(const Sequence& sequence) {
  Session session;
  const auto& operations = session.host.Operations();
  std::map<std::string, size_t> calls;
  for (const std::string& operation : operations.Names()) calls[operation] = 0;
  (session.*sequence.run)();
  EXPECT_TRUE(session.WentAsExpected()) << sequence.name;
  EXPECT_EQ(session.host.Leftovers(), Lines());
  for (auto& [operation, count] : calls) count = operations.Calls(operation);
  return calls;
}

TEST(OperationCampaign, EveryCallOfEveryOperationIsRefusedOnceAndThrowsOnce) {
  std::map<std::string, size_t> allCalls;
  size_t faults = 0;
  for (const Sequence& sequence : kSequences) {
    for (const auto& [operation, calls] : CallsIn(sequence)) {
      allCalls[operation] += calls;
      for (size_t call = 1; call <= calls; ++call)
        for (const Fault& fault : kFaults)
          if (faults++ % campaign::Step(1) == 0 && !HasFailure())
            DisturbCall(sequence, operation, call, fault);
    }
  }
  std::erase_if(allCalls, [](const auto& operation) { return operation.second > 0; });
  EXPECT_EQ(allCalls, (std::map<std::string, size_t>{{"QP Access Suite/AcquirePlugin", 0},
                                                     {"QP Access Suite/ReleasePlugin", 0}}))
      << "nothing locks this plug-in; all else must be part of a session";
}

/// Refuses every n-th allocation, n growing by `step`, until a session gets through all of them.
/// `refuse` begins with a refusal, and `wasRefused` ends it and says whether it happened.
void RefuseOneByOne(size_t step,
                    const std::function<void(Session& session, size_t countdown)>& refuse,
                    const std::function<bool()>& wasRefused) {
  for (const Sequence& sequence : kSequences) {
    size_t place = 1;
    for (bool goesOn = true; goesOn && !testing::Test::HasFailure(); place += step) {
      SCOPED_TRACE(std::string(sequence.name) + ", allocation " + std::to_string(place));
      Session session;
      session.allowed = {ResultCode::kOutOfMemory, ResultCode::kCannot, ResultCode::kParameter};
      refuse(session, place);
      RunDisturbed(sequence, session, [&](const Lines& left) {
        goesOn = wasRefused();
        EXPECT_TRUE(goesOn || session.WentAsExpected());
        EXPECT_EQ(left, Lines());
      });
    }
    EXPECT_GT(place, std::max<size_t>(50, 10 * step)) << "a session takes more than that";
  }
}

TEST(AllocationCampaign, EveryBlockIsRefusedOnce) {
  qpbasic::Ledger& ledger = qpbasic::Ledger::Get();
  // With a code, and with success but no block.
  for (const auto code : {ResultCode::kOutOfMemory, ResultCode::kSuccess}) {
    size_t refusals = 0;
    const auto refuse = [&](Session&, size_t countdown) {
      refusals = ledger.Counts().refusals;
      ledger.Refuse({.countdown = countdown, .once = true, .code = code});
    };
    RefuseOneByOne(campaign::Step(1), refuse, [&] {
      ledger.RefuseNothing();
      return ledger.Counts().refusals != refusals;
    });
  }
}

TEST(AllocationCampaign, TheToolkitRunsOutOfMemoryOnce) {
  const auto refuse = [](Session& session, size_t countdown) {
    toolkit_memory::untilRefusal = countdown;
    session.onCall = [](bool isInside) { toolkit_memory::isArmed = isInside; };
  };
  RefuseOneByOne(campaign::Step(17), refuse,
                 [] { return std::exchange(toolkit_memory::untilRefusal, 0) == 0; });
}

}  // namespace
