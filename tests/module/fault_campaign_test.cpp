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
#include "tests/module/story.h"
#include "tests/module/toolkit_memory.h"
#include "tests/support/campaign.h"

// Every fault that the host or the toolkit can cause is caused once, at every place of whole
// stories. Afterwards the same module must get through a whole life undisturbed.

namespace {

using Lines = std::vector<std::string>;

struct Plot {
  const char* name;
  Story::Plot play;
};

constexpr Plot kPlots[] = {
    {"a life", &Story::PlayLife},
    {"failures", &Story::PlayFailures},
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

/// Plays with the fault in place, and then a life without. `expectLeft` judges what the first play
/// leaves; the second must leave no more.
void PlayDisturbed(const Plot& plot, Story& story,
                   const std::function<void(const Lines& left)>& expectLeft) {
  (story.*plot.play)();
  const Lines left = story.host.Leftovers();
  expectLeft(left);
  story.ForgetDisturbances();
  story.PlayLife();
  EXPECT_TRUE(story.IsUndisturbed()) << "the module has not recovered";
  for (const std::string& line : story.host.Leftovers())
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

/// Plays the plot with the operation's call failing.
void DisturbCall(const Plot& plot, const std::string& operation, size_t call, const Fault& fault) {
  SCOPED_TRACE(std::string(plot.name) + ", " + operation + ", call " + std::to_string(call) + ", " +
               fault.name);
  Story story;
  story.allowed = {fault.answer};
  // What goes wrong with the suite's table or its registration has one code.
  if (operation.starts_with("QP Blocks Suite/") || operation.starts_with("QP Suites Suite/"))
    story.allowed.push_back(ResultCode::kParameter);
  auto& operations = story.host.Operations();
  if (fault.exception) {
    operations.Throw(operation, fault.exception, call);
  } else {
    operations.Refuse(operation, fault.answer, call);
  }
  PlayDisturbed(plot, story, [&](const Lines& left) {
    for (const std::string& line : left) {
      EXPECT_TRUE(std::ranges::any_of(kOwed, [&](const auto& owed) {
        return operation.starts_with(owed.first) && line.find(owed.second) != line.npos;
      })) << line;
    }
  });
  EXPECT_EQ(operations.Disturbed(), 1u);
}

/// How often each operation is called in the plot when nothing fails.
std::map<std::string, size_t> CallsIn(const Plot& plot) {
  Story story;
  const auto& operations = story.host.Operations();
  std::map<std::string, size_t> calls;
  for (const std::string& operation : operations.Names()) calls[operation] = 0;
  (story.*plot.play)();
  EXPECT_TRUE(story.IsUndisturbed()) << plot.name;
  for (auto& [operation, count] : calls) count = operations.Calls(operation);
  return calls;
}

TEST(OperationCampaign, EveryCallOfEveryOperationIsRefusedOnceAndThrowsOnce) {
  std::map<std::string, size_t> allCalls;
  size_t faults = 0;
  for (const Plot& plot : kPlots) {
    for (const auto& [operation, calls] : CallsIn(plot)) {
      allCalls[operation] += calls;
      for (size_t call = 1; call <= calls; ++call)
        for (const Fault& fault : kFaults)
          if (faults++ % campaign::Step(1) == 0 && !HasFailure())
            DisturbCall(plot, operation, call, fault);
    }
  }
  std::erase_if(allCalls, [](const auto& operation) { return operation.second > 0; });
  EXPECT_EQ(allCalls, (std::map<std::string, size_t>{{"QP Access Suite/AcquirePlugin", 0},
                                                     {"QP Access Suite/ReleasePlugin", 0}}))
      << "nothing locks this plug-in; all else must be part of a story";
}

/// Refuses every n-th allocation, n growing by `step`, until a story gets through all of them.
/// `refuse` begins with a refusal, and `wasRefused` ends it and says whether it happened.
void RefuseOneByOne(size_t step, const std::function<void(Story& story, size_t countdown)>& refuse,
                    const std::function<bool()>& wasRefused) {
  for (const Plot& plot : kPlots) {
    size_t place = 1;
    for (bool goesOn = true; goesOn && !testing::Test::HasFailure(); place += step) {
      SCOPED_TRACE(std::string(plot.name) + ", allocation " + std::to_string(place));
      Story story;
      story.allowed = {ResultCode::kOutOfMemory, ResultCode::kCannot, ResultCode::kParameter};
      refuse(story, place);
      PlayDisturbed(plot, story, [&](const Lines& left) {
        goesOn = wasRefused();
        EXPECT_TRUE(goesOn || story.IsUndisturbed());
        EXPECT_EQ(left, Lines());
      });
    }
    EXPECT_GT(place, std::max<size_t>(50, 10 * step)) << "a story takes more than that";
  }
}

TEST(AllocationCampaign, EveryBlockIsRefusedOnce) {
  qpbasic::Ledger& ledger = qpbasic::Ledger::Get();
  // With a code, and with success but no block.
  for (const auto code : {ResultCode::kOutOfMemory, ResultCode::kSuccess}) {
    size_t refusals = 0;
    const auto refuse = [&](Story&, size_t countdown) {
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
  const auto refuse = [](Story& story, size_t countdown) {
    toolkit_memory::untilRefusal = countdown;
    story.onCall = [](bool isInside) { toolkit_memory::isArmed = isInside; };
  };
  RefuseOneByOne(campaign::Step(17), refuse,
                 [] { return std::exchange(toolkit_memory::untilRefusal, 0) == 0; });
}

}  // namespace
