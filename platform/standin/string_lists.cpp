#include "platform/standin/string_lists.h"

#include <charconv>
#include <sstream>
#include <string_view>

#include "platform/nrvcore/localizer.h"
#include "platform/nrvcore/unicode.h"

namespace standin {

using nrvcore::config::Message;

namespace {

constexpr int32_t kLastIndex = 32767;
constexpr size_t kLongestLine = 4096;

}  // namespace

StringList ReadStringList(std::istream& stream, const std::filesystem::path& file) {
  StringList list;
  int32_t previous = 0;
  size_t lineNumber = 0;
  for (std::string line; std::getline(stream, line);) {
    ++lineNumber;
    const auto refuse = [&](const std::string& reason) {
      throw nrvcore::FileError(file, lineNumber, reason);
    };
    if (line.ends_with('\r')) line.pop_back();
    if (line.empty() || line.front() == '#') continue;
    if (line.size() > kLongestLine)
      refuse(Message("$$$/standin/Lists/LongLine=the line is longer than %1 bytes",
                     {std::to_string(kLongestLine)}));
    if (line.find('\0') != std::string::npos)
      refuse(Message("$$$/standin/Lists/Nul=the line contains a NUL"));
    if (!nrvcore::utility::IsValidUTF8(line))
      refuse(Message("$$$/standin/Lists/Encoding=the line is not UTF-8"));
    const size_t tab = line.find('\t');
    if (tab == std::string::npos)
      refuse(Message("$$$/standin/Lists/NoTab=no tab between index and text"));
    int32_t index{};
    const auto [end, error] = std::from_chars(line.data(), line.data() + tab, index);
    if (error != std::errc() || end != line.data() + tab || index < 1 || index > kLastIndex)
      refuse(Message("$$$/standin/Lists/NoIndex=\"%1\" is not an index from 1 to %2",
                     {line.substr(0, tab), std::to_string(kLastIndex)}));
    if (index <= previous)
      refuse(Message("$$$/standin/Lists/Order=index %1 after index %2",
                     {std::to_string(index), std::to_string(previous)}));
    list.emplace_hint(list.end(), index, line.substr(tab + 1));
    previous = index;
  }
  return list;
}

namespace {

constexpr size_t kLargestFile = 1 << 20;

/// Empty when there is no such file.
StringList ReadList(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error) && !error) return {};
  std::istringstream stream(nrvcore::ReadFile(file, kLargestFile));
  return ReadStringList(stream, file);
}

/// The language of the texts. The catalogue states it, so lists and dialogs match.
std::filesystem::path Language() {
  return nrvcore::config::Localizer::Get().Localize("$$$/standin/Lists/Language=en").View();
}

}  // namespace

const std::string* StringLists::Find(ListOwner owner, int32_t number, int32_t index) {
  auto found = lists.find({owner, number});
  if (found == lists.end()) {
    const auto folder =
        owner == ListOwner::kHost ? resources.host / "host" : resources.plugin / "strings";
    const std::string file = std::to_string(number) + ".txt";
    StringList list = ReadList(folder / file);
    StringList translated = ReadList(folder / Language() / file);
    translated.merge(list);
    found = lists.emplace(std::pair{owner, number}, std::move(translated)).first;
  }
  const auto entry = found->second.find(index);
  return entry == found->second.end() ? nullptr : &entry->second;
}

void StringLists::Replace(ListOwner owner, int32_t number, StringList list) {
  lists.insert_or_assign({owner, number}, std::move(list));
}

}  // namespace standin
