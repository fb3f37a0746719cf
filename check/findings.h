#pragma once

#include <concepts>
#include <cstddef>
#include <cstdio>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "check/check.h"
#include "platform/suites/result_code.h"

/// What a check finds. Each check has a process of its own, and so has what is found.
namespace check {

/// Writes what is wrong to the standard output, a line each, and lets the check go on. After some
/// they are only counted.
void Fail(const std::string& what);
bool HasFailed();
/// Says how many were only counted.
void CountOtherFindings();

/// What is being tried until the end of the scope. Findings name it, and so does the report of a
/// crash.
class Trying {
 public:
  explicit Trying(std::string_view what);
  ~Trying();
  Trying(const Trying&) = delete;
  Trying& operator=(const Trying&) = delete;

 private:
  size_t outer;
};

/// Has this process and those that it forks write what they try into the same memory.
void ShareTrying();
/// What the process that wrote last is trying, or was when it ended.
std::string_view Tried();
void ForgetTried();

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
    text << (value == nullptr ? "null" : "an address");
  } else if constexpr (std::is_arithmetic_v<Value>) {
    text << +value;
  } else {
    const char* separator = "";
    for (const auto& element : value) text << std::exchange(separator, ", ") << Text(element);
    if (!*separator) text << "nothing";
  }
  return text.str();
}

template <typename Seen, typename Expected>
void Expect(std::string_view what, const Seen& seen, const Expected& expected) {
  if (settings.isVerbose)
    std::printf("%.*s: %s\n", static_cast<int>(what.size()), what.data(), Text(seen).c_str());
  if (seen == expected) return;
  Fail(std::string(what) + ": expected " + Text(expected) + ", seen " + Text(seen));
}

void Expect(std::string_view what, std::same_as<bool> auto isSo) {
  Expect(what, isSo, true);
}

/// Of records as they are in memory; names the first byte that differs.
void ExpectBytes(std::string_view what, const std::string& seen, const std::string& expected);

}  // namespace check
