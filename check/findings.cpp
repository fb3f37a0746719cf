#include "check/findings.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>

#include "platform/nrvcore/unicode.h"

namespace check {
namespace {

constexpr size_t kMostFindings = 8;

/// Writes as much of `added` as fits, and 0 after it.
template <size_t kSize>
void Put(char (&text)[kSize], size_t place, std::string_view added) {
  const size_t length = std::min(added.size(), kSize - 1 - place);
  std::memcpy(text + place, added.data(), length);
  text[place + length] = '\0';
}

/// The element at `index`, for a finding.
std::string Entry(const std::vector<std::string>& list, size_t index) {
  return index < list.size() ? Text(list[index]) : "the end";
}

}  // namespace

void Report(std::string_view line) {
  static size_t end = 0;
  for (const std::string_view text : {line, std::string_view("\n")}) {
    Put(notes->findings, end, text);
    end = std::min(end + text.size(), sizeof notes->findings - 1);
  }
}

void Fail(const std::string& what) {
  if (++notes->failures > kMostFindings) return;
  const std::string_view steps = notes->steps;
  Report(OnOneLine(std::string(steps) + (steps.empty() ? "" : ": ") + what));
}

void RunToEnd(const std::function<void()>& run) {
  try {
    run();
  } catch (const std::exception& error) {
    Fail(error.what());
  } catch (...) {
    Fail("an exception of unknown type was thrown");
  }
  NoteOperation(nullptr);
  if (notes->failures > kMostFindings)
    Report("and " + std::to_string(notes->failures - kMostFindings) + " more");
  notes->isComplete = true;
}

Trying::Trying(std::string_view what) : outer(std::strlen(notes->steps)) {
  if (outer > 0) Put(notes->steps, outer, ", ");
  Put(notes->steps, std::strlen(notes->steps), what);
  if (settings.isVerbose) Report(notes->steps);
}

Trying::~Trying() {
  notes->steps[outer] = '\0';
}

void NoteOperation(const char* name) {
  Put(notes->operation, 0, name ? name : "");
}

void Tell(std::string_view line) {
  Put(notes->story, line.empty() ? 0 : std::strlen(notes->story), line);
  if (!line.empty()) Put(notes->story, std::strlen(notes->story), "\n");
}

void Expect(std::string_view what, const std::vector<std::string>& seen,
            const std::vector<std::string>& expected) {
  if (settings.isVerbose) Report(std::string(what) + ": " + Text(seen));
  if (seen == expected) return;
  if (expected.empty()) return Fail(std::string(what) + ": expected nothing, seen " + Text(seen));
  const auto place = static_cast<size_t>(std::ranges::mismatch(seen, expected).in1 - seen.begin());
  Fail(std::string(what) + ", number " + std::to_string(place + 1) + ": expected " +
       Entry(expected, place) + ", seen " + Entry(seen, place) +
       (place > 0 ? ", after " + Entry(seen, place - 1) : ""));
}

std::string OnOneLine(std::string_view text) {
  const bool isUnicode = nrvcore::utility::IsValidUTF8(text);
  std::string line;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\n' || c == '\t') {
      line += c == '\n' ? "\\n" : "\\t";
    } else if (byte < ' ' || byte == 0x7F || (byte > 0x7F && !isUnicode)) {
      char digits[5];
      std::snprintf(digits, sizeof digits, "\\x%02X", byte);
      line += digits;
    } else {
      line += c;
    }
  }
  return line;
}

std::string CodeText(ResultCode code) {
  const auto number = static_cast<int32_t>(code);
  std::string text;
  for (int shift = 24; shift >= 0; shift -= 8) text += static_cast<char>(number >> shift & 0xFF);
  const bool isText = std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
  return isText ? "'" + text + "'" : std::to_string(number);
}

}  // namespace check
