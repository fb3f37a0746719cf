#include "check/findings.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>

#include "check/check.h"

namespace check {
namespace {

constexpr size_t kMostFindings = 8;
constexpr size_t kRoom = 1024;

size_t findings = 0;

char ownRoom[kRoom];
char* room = ownRoom;  // ends with 0

}  // namespace

void Fail(const std::string& what) {
  if (++findings > kMostFindings) return;
  const std::string tried(Tried());
  std::printf("%s%s%s\n", tried.c_str(), tried.empty() ? "" : ": ", what.c_str());
}

bool HasFailed() {
  return findings > 0;
}

void CountOtherFindings() {
  if (findings > kMostFindings) std::printf("and %zu more\n", findings - kMostFindings);
}

Trying::Trying(std::string_view what) : outer(std::strlen(room)) {
  std::snprintf(room + outer, kRoom - outer, "%s%.*s", outer > 0 ? ", " : "",
                static_cast<int>(what.size()), what.data());
  if (settings.isVerbose) std::printf("%s\n", room);
}

Trying::~Trying() {
  room[outer] = '\0';
}

void ShareTrying() {
  void* const shared =
      mmap(nullptr, kRoom, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) throw std::bad_alloc();
  room = static_cast<char*>(shared);
}

std::string_view Tried() {
  return {room, strnlen(room, kRoom)};
}

void ForgetTried() {
  room[0] = '\0';
}

void ExpectBytes(std::string_view what, const std::string& seen, const std::string& expected) {
  const auto [at, other] = std::ranges::mismatch(seen, expected);
  if (at == seen.end() && other == expected.end()) return;
  Fail(std::string(what) + " differ from what they must be, first at byte " +
       std::to_string(at - seen.begin()));
}

std::string CodeText(ResultCode code) {
  const auto number = static_cast<int32_t>(code);
  std::string text;
  for (int shift = 24; shift >= 0; shift -= 8) text += static_cast<char>(number >> shift & 0xFF);
  const bool isText = std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
  return isText ? "'" + text + "'" : std::to_string(number);
}

}  // namespace check
