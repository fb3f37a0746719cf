#pragma once

#include <concepts>
#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "check/apart.h"
#include "check/check.h"
#include "platform/suites/result_code.h"

/// The findings of a check. Each check runs in a process of its own, so all of this belongs to the
/// check that runs.
namespace check {

/// Reports a finding and lets the check continue. After eight, findings are only counted.
void Fail(const std::string& what);
bool HasFailed();
/// Reports how many findings were only counted.
void CountOtherFindings();

/// A step of the check, until the end of the scope. Findings name the steps in progress, and so
/// does the report of a crash or a time-out. Allocates nothing.
class Trying {
 public:
  explicit Trying(std::string_view what);
  ~Trying();
  Trying(const Trying&) = delete;
  Trying& operator=(const Trying&) = delete;

 private:
  size_t outer;
};

/// Notes the host's operation that the module has called last, for the report of a crash; null when
/// the module has returned.
void NoteOperation(const char* name);
/// Adds a line to what is shown with the first finding or the crash of random input: what was done
/// so far. Empty text begins anew.
void Tell(std::string_view line);

/// Has this process and those that it forks note steps in shared memory. Throws std::bad_alloc.
void ShareTrying();
/// The steps in progress, or those in which a forked process has ended.
std::string Tried();
std::string Told();
void ForgetTried();

/// Text on one line: control characters, and bytes that are not UTF-8, as \n, \t or \x1B.
std::string OnOneLine(std::string_view text);

/// Four characters, or a number.
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

template <typename Seen, typename Expected>
void Expect(std::string_view what, const Seen& seen, const Expected& expected) {
  if (settings.isVerbose) Report(std::string(what) + ": " + Text(seen));
  if (seen == expected) return;
  Fail(std::string(what) + ": expected " + Text(expected) + ", seen " + Text(seen));
}

/// Of long lists, names the first difference only.
void Expect(std::string_view what, const std::vector<std::string>& seen,
            const std::vector<std::string>& expected);

void Expect(std::string_view what, std::same_as<bool> auto isSo) {
  Expect(what, isSo, true);
}

}  // namespace check
