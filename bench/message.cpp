#include <cstring>
#include <stdexcept>

#include "bench/built_module.h"
#include "bench/figures.h"
#include "platform/suites/message_names.h"
#include "testkit/known_messages.h"

namespace {

constexpr MessageName kUnanswered = {"VX Live Effect", "VX Live Effect Unheard Of"};
constexpr MessageName kLastRow = {messages::kScriptCaller, "Any Script"};

/// All rows; the last one matches any selector.
const KnownMessage* FindInTurn(MessageName name) {
  static constexpr KnownMessage kLast = {messages::kScriptCaller, nullptr, "OnScriptMessage"};
  const auto isNamed = [name](const KnownMessage& row) {
    const bool isCaller = std::strcmp(row.caller, name.caller) == 0;
    const bool isSelector = !row.selector || std::strcmp(row.selector, name.selector) == 0;
    return isCaller & isSelector;
  };
  for (const KnownMessage& row : kKnownMessages) {
    if (isNamed(row)) return &row;
  }
  return isNamed(kLast) ? &kLast : nullptr;
}

void Send(benchmark::State& state, MessageName name) {
  bench::BuiltModule module;
  const PluginEntryPoint entry = module.Entry();
  PluginMessage message = module.Message();
  if (entry(name.caller, name.selector, &message) != ResultCode::kSuccess) {
    throw std::runtime_error("the module does not answer");
  }
  for (auto _ : state) {
    benchmark::DoNotOptimize(name);
    benchmark::DoNotOptimize(entry(name.caller, name.selector, &message));
  }
}

void CompareInTurn(benchmark::State& state, MessageName name) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(name);
    benchmark::DoNotOptimize(FindInTurn(name));
  }
}

BENCHMARK_CAPTURE(Send, unanswered, kUnanswered)->Name("Message/unanswered");
BENCHMARK_CAPTURE(Send, lastRow, kLastRow)->Name("Message/last-row");
BENCHMARK_CAPTURE(CompareInTurn, unanswered, kUnanswered)->Name("Message/unanswered-in-turn");
BENCHMARK_CAPTURE(CompareInTurn, lastRow, kLastRow)->Name("Message/last-row-in-turn");

constexpr const char* kInTurn = "comparing both strings with every row in turn";
constexpr bench::Line kLines[] = {
    {.what = "a message that no row answers", .figure = "Message/unanswered", .limit = 100e-9},
    {.what = "the same",
     .figure = "Message/unanswered",
     .against = kInTurn,
     .peer = "Message/unanswered-in-turn",
     .limit = 1},
    {.what = "a message for the table's last row", .figure = "Message/last-row", .limit = 100e-9},
    {.what = "the same",
     .figure = "Message/last-row",
     .against = kInTurn,
     .peer = "Message/last-row-in-turn",
     .limit = 1},
};
const bench::Table kTable(1, kLines);

}  // namespace
