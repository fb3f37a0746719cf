#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <utility>

#include "platform/standin/string_list.h"

namespace standin {

enum class ListOwner { kPlugin, kHost };

/// The string lists of the resources: "strings/<number>.txt" are the plug-in's, "host/<number>.txt"
/// the host's own. A list is read when it is first asked for, in the language of that moment:
/// entries of "<language>/<number>.txt" beside it take the place of its own. Without a file it is
/// empty.
class StringLists {
 public:
  explicit StringLists(std::filesystem::path root) : resources(std::move(root)) {}

  /// Null when there is no such entry. Throws ResourceError when the list's file is damaged.
  const std::string* Find(ListOwner owner, int32_t number, int32_t index);

  /// Uses `list` in place of the file.
  void Replace(ListOwner owner, int32_t number, StringList list);

 private:
  std::filesystem::path resources;
  std::map<std::pair<ListOwner, int32_t>, StringList> lists;
};

}  // namespace standin
