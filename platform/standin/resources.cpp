#include "platform/standin/resources.h"

#define BOOST_DLL_USE_STD_FS
#include <boost/dll/runtime_symbol_info.hpp>
#include <charconv>
#include <sstream>

#include "platform/nrvcore/file.h"
#include "platform/nrvcore/localizer.h"
#include "platform/nrvcore/unicode.h"

namespace standin {

using nrvcore::config::Message;

namespace {

/// The list of a file; empty if the file does not exist.
StringList ReadList(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error) && !error) return {};
  return ParseStringList(nrvcore::ReadFile(file), file);
}

/// The language of the texts, as the catalogue in use states it.
std::filesystem::path Language() {
  return nrvcore::config::Localizer::Get().Localize("$$$/standin/Lists/Language=en").View();
}

}  // namespace

ResourceFolders ResourceFolders::OfProgram() {
  std::error_code error;  // after an error the location is empty
  const std::filesystem::path tree =
      boost::dll::program_location(error).parent_path().parent_path();
  return {tree / "share/tesserae", tree / "lib/tesserae/plugins/TesseraeUI"};
}

StringList ParseStringList(const std::string& text, const std::filesystem::path& file) {
  StringList list;
  std::istringstream stream(text);
  int32_t index = 0;
  size_t lineNumber = 0;
  for (std::string line; std::getline(stream, line);) {
    ++lineNumber;
    const auto refuse = [&](const std::string& reason) {
      throw nrvcore::FileError(file, lineNumber, reason);
    };
    if (line.ends_with('\r')) line.pop_back();
    if (line.empty() || line.front() == '#') continue;
    if (!nrvcore::utility::IsValidUTF8(line))
      refuse(Message("$$$/standin/Lists/Encoding=the line is not UTF-8"));
    const size_t tab = line.find('\t');
    if (tab == std::string::npos)
      refuse(Message("$$$/standin/Lists/NoTab=no tab between index and text"));
    const int32_t previous = index;
    const auto [end, error] = std::from_chars(line.data(), line.data() + tab, index);
    if (error != std::errc() || end != line.data() + tab || index <= previous)
      refuse(Message("$$$/standin/Lists/NoIndex=\"%1\" is not an index above %2",
                     {line.substr(0, tab), std::to_string(previous)}));
    list.emplace_hint(list.end(), index, line.substr(tab + 1));
  }
  return list;
}

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
