#include "check/findings.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>

#include "platform/nrvcore/unicode.h"

namespace check {
namespace {

constexpr size_t kMostFindings = 8;

size_t findings = 0;

/// What a crash leaves to be read by the process that started the check. All texts end with 0.
struct Notes {
  char steps[1024];
  char operation[128];
  char story[16 << 10];
};
Notes ownNotes;
Notes* notes = &ownNotes;

/// `what`, a number from 1, and what stands there.
std::string Entry(const std::vector<std::string>& list, size_t index) {
  return index < list.size() ? Text(list[index]) : "the end";
}

}  // namespace

void Fail(const std::string& what) {
  if (++findings > kMostFindings) return;
  const std::string_view steps = notes->steps;
  Report(OnOneLine(std::string(steps) + (steps.empty() ? "" : ": ") + what));
}

bool HasFailed() {
  return findings > 0;
}

void CountOtherFindings() {
  if (findings > kMostFindings) Report("and " + std::to_string(findings - kMostFindings) + " more");
}

Trying::Trying(std::string_view what) : outer(std::strlen(notes->steps)) {
  std::snprintf(notes->steps + outer, sizeof notes->steps - outer, "%s%.*s", outer > 0 ? ", " : "",
                static_cast<int>(what.size()), what.data());
  if (settings.isVerbose) Report(notes->steps);
}

Trying::~Trying() {
  notes->steps[outer] = '\0';
}

void NoteOperation(const char* name) {
  std::snprintf(notes->operation, sizeof notes->operation, "%s", name ? name : "");
}

void Tell(std::string_view line) {
  const size_t end = line.empty() ? 0 : std::strlen(notes->story);
  std::snprintf(notes->story + end, sizeof notes->story - end, "%.*s%s",
                static_cast<int>(line.size()), line.data(), line.empty() ? "" : "\n");
}

void ShareTrying() {
  void* const shared =
      mmap(nullptr, sizeof(Notes), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) throw std::bad_alloc();
  notes = static_cast<Notes*>(shared);
}

std::string Tried() {
  std::string tried(notes->steps, strnlen(notes->steps, sizeof notes->steps));
  const std::string operation(notes->operation, strnlen(notes->operation, sizeof notes->operation));
  if (operation.empty()) return tried;
  return tried + (tried.empty() ? "" : ", ") + "after the module's call of " + operation;
}

std::string Told() {
  return {notes->story, strnlen(notes->story, sizeof notes->story)};
}

void ForgetTried() {
  std::memset(notes, 0, sizeof *notes);
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
