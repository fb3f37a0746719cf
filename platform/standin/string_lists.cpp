#include "platform/standin/string_lists.h"

#include <fstream>

#include "platform/standin/resource_error.h"

namespace standin {
namespace {

StringList ReadFile(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return {};
  if (!std::filesystem::is_regular_file(file, error)) throw ResourceError(file, 0, "is no file");
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw ResourceError(file, 0, "the file cannot be opened");
  return StringList::Read(stream, file);
}

}  // namespace

const std::string* StringLists::Find(ListOwner owner, int32_t number, int32_t index) {
  auto found = lists.find({owner, number});
  if (found == lists.end()) {
    const char* const folder = owner == ListOwner::kHost ? "host" : "strings";
    const std::filesystem::path file = resources / folder / (std::to_string(number) + ".txt");
    found = lists.emplace(std::pair{owner, number}, ReadFile(file)).first;
  }
  return found->second.Find(index);
}

void StringLists::Replace(ListOwner owner, int32_t number, StringList list) {
  lists.insert_or_assign({owner, number}, std::move(list));
}

}  // namespace standin
