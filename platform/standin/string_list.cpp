#include "platform/standin/string_list.h"

#include <charconv>
#include <string_view>

#include "platform/nrvcore/unicode.h"
#include "platform/standin/resource_error.h"

namespace standin {
namespace {

constexpr int32_t kLastIndex = 32767;
constexpr size_t kLongestLine = 4096;

}  // namespace

StringList StringList::Read(std::istream& stream, const std::filesystem::path& file) {
  StringList list;
  int32_t previous = 0;
  size_t lineNumber = 0;
  for (std::string line; std::getline(stream, line);) {
    ++lineNumber;
    const auto refuse = [&](const std::string& reason) {
      throw ResourceError(file, lineNumber, reason);
    };
    if (line.ends_with('\r')) line.pop_back();
    if (line.empty() || line.front() == '#') continue;
    if (line.size() > kLongestLine)
      refuse("the line is longer than " + std::to_string(kLongestLine) + " bytes");
    if (line.find('\0') != std::string::npos) refuse("the line contains a NUL");
    if (!nrvcore::utility::IsValidUTF8(line)) refuse("the line is not UTF-8");
    const size_t tab = line.find('\t');
    if (tab == std::string::npos) refuse("no tab between index and text");
    int32_t index = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + tab, index);
    if (error != std::errc() || end != line.data() + tab || index < 1 || index > kLastIndex)
      refuse("\"" + line.substr(0, tab) + "\" is no index from 1 to " + std::to_string(kLastIndex));
    if (index <= previous)
      refuse("index " + std::to_string(index) + " after index " + std::to_string(previous));
    list.entries.emplace_hint(list.entries.end(), index, line.substr(tab + 1));
    previous = index;
  }
  if (stream.bad()) throw ResourceError(file, lineNumber + 1, "the file cannot be read");
  return list;
}

const std::string* StringList::Find(int32_t index) const {
  const auto found = entries.find(index);
  return found == entries.end() ? nullptr : &found->second;
}

}  // namespace standin
