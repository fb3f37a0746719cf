#pragma once

#include <concepts>
#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "check/check.h"
#include "platform/suites/result_code.h"

/// What a check reports: findings, and what it was doing when it ended. Checks call these functions
/// in their own process.
namespace check {

/// The report of one check, in memory that its process shares with the process that started it, so
/// that a crash does not lose it. Bytes after a text are 0.
struct Notes {
  bool isComplete;           // the check has returned
  size_t failures;           // findings, including those that are only counted
  char steps[1024];          // the steps in progress
  char operation[128];       // the host's operation that the module called last
  char story[16 << 10];      // what random input did
  char findings[64u << 20];  // one per line
};
/// Null outside of checks. apart.cpp provides it.
inline Notes* notes = nullptr;

/// Adds a line to the report.
void Report(std::string_view line);
/// Reports a finding; the check continues. Findings after the eighth are only counted.
void Fail(const std::string& what);
inline bool HasFailed() {
  return notes->failures > 0;
}
/// Runs the check to its end. An exception that leaves `run` is a finding.
void RunToEnd(const std::function<void()>& run);

/// A step of the check, until the end of the scope. Findings name the steps in progress, and so
/// does the report of a crash or a time-out. Allocates nothing.
class Trying {
 public:
  explicit Trying(std::string_view what);
  ~Trying();
  Trying(const Trying&) = delete;
  Trying& operator=(const Trying&) = delete;

 private:
  const size_t outer;
};

/// Records the host's operation that the module calls; null when the module has returned.
void NoteOperation(const char* name);
/// Adds a line to the story of random input, which is printed if the check fails. An empty line
/// starts a new story.
void Tell(std::string_view line);

/// Text on one line: control characters, and bytes that are not UTF-8, as \n, \t or \x1B.
std::string OnOneLine(std::string_view text);

/// A code as its four characters, or as a number if they cannot be printed.
std::string CodeText(ResultCode code);

template <typename Value>
std::string Text(const Value& value) {
  std::ostringstream text;
  if constexpr (std::is_same_v<Value, ResultCode>) {
    text << CodeText(value);
  } else if constexpr (std::is_null_pointer_v<Value>) {
    text << "null";
  } else if constexpr (std::is_convertible_v<Value, std::string_view>) {
    text << '"' << std::string_view(value) << '"';
  } else if constexpr (std::is_same_v<Value, bool>) {
    text << (value ? "yes" : "no");
  } else if constexpr (std::is_pointer_v<Value>) {
    text << static_cast<const void*>(value);
  } else if constexpr (std::is_arithmetic_v<Value>) {
    text << +value;
  } else {
    for (const auto& element : value) text << (text.tellp() > 0 ? ", " : "") << Text(element);
    if (text.tellp() == 0) text << "nothing";
  }
  return text.str();
}

/// Reports a finding unless `seen` equals `expected`.
template <typename Seen, typename Expected>
void Expect(std::string_view what, const Seen& seen, const Expected& expected) {
  if (settings.isVerbose) Report(std::string(what) + ": " + Text(seen));
  if (seen == expected) return;
  Fail(std::string(what) + ": expected " + Text(expected) + ", seen " + Text(seen));
}

/// For long lists; the finding names only the first difference.
void Expect(std::string_view what, const std::vector<std::string>& seen,
            const std::vector<std::string>& expected);

void Expect(std::string_view what, std::same_as<bool> auto isSo) {
  Expect(what, isSo, true);
}

}  // namespace check
