#include "platform/standin/string_lists.h"

#include <fstream>

#include "platform/nrvcore/localizer.h"
#include "platform/standin/resource_error.h"

namespace standin {
namespace {

constexpr uintmax_t kLargestFile = 1 << 20;

StringList ReadFile(const std::filesystem::path& file) {
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (status.type() == std::filesystem::file_type::not_found) return {};
  if (!is_regular_file(status)) throw ResourceError(file, 0, "is no file that can be read");
  if (std::filesystem::file_size(file, error) > kLargestFile)
    throw ResourceError(file, 0,
                        "the file is larger than " + std::to_string(kLargestFile) + " bytes");
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw ResourceError(file, 0, "the file cannot be opened");
  return StringList::Read(stream, file);
}

/// The catalogue that is in use says which texts go with it.
std::filesystem::path Language() {
  return nrvcore::config::Localizer::Get().Localize("$$$/standin/Lists/Language=en").View();
}

}  // namespace

const std::string* StringLists::Find(ListOwner owner, int32_t number, int32_t index) {
  auto found = lists.find({owner, number});
  if (found == lists.end()) {
    const auto folder = resources / (owner == ListOwner::kHost ? "host" : "strings");
    const std::string file = std::to_string(number) + ".txt";
    StringList list = ReadFile(folder / file);
    const StringList translated = ReadFile(folder / Language() / file);
    for (const auto& [place, text] : translated.Entries()) list.Set(place, text);
    found = lists.emplace(std::pair{owner, number}, std::move(list)).first;
  }
  return found->second.Find(index);
}

void StringLists::Replace(ListOwner owner, int32_t number, StringList list) {
  lists.insert_or_assign({owner, number}, std::move(list));
}

}  // namespace standin
