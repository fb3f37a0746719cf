#pragma once

#include <cstdint>
#include <filesystem>
#include <istream>
#include <map>
#include <string>
#include <utility>

#include "platform/standin/resources.h"

namespace standin {

/// Texts by number.
using StringList = std::map<int32_t, std::string>;

/// In a file an entry is a line: the index, a tab, the text in UTF-8. Indices start at 1 and rise
/// from line to line, with gaps where there is no entry; lines that are empty or begin with '#' are
/// skipped. `file` names the source in a ResourceError.
StringList ReadStringList(std::istream& stream, const std::filesystem::path& file);

enum class ListOwner { kPlugin, kHost };

/// The string lists of the resources: "strings/<number>.txt" in the plug-in's folder,
/// "host/<number>.txt" in the host's. A list is read when it is first asked for, in the language of
/// that moment: entries of "<language>/<number>.txt" beside it take the place of its own. Without a
/// file it is empty.
class StringLists {
 public:
  explicit StringLists(ResourceFolders folders) : resources(std::move(folders)) {}

  /// Null when there is no such entry. Throws ResourceError when the list's file is damaged.
  const std::string* Find(ListOwner owner, int32_t number, int32_t index);

  /// Uses `list` in place of the file.
  void Replace(ListOwner owner, int32_t number, StringList list);

 private:
  ResourceFolders resources;
  std::map<std::pair<ListOwner, int32_t>, StringList> lists;
};

}  // namespace standin
