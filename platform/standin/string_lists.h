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

/// Parses a list. Each line is an entry: the index, a tab, the text in UTF-8. Indices are at least
/// 1 and ascend; they may have gaps. Empty lines and lines that begin with '#' are skipped. Throws
/// nrvcore::FileError, which names `file`.
StringList ReadStringList(std::istream& stream, const std::filesystem::path& file);

enum class ListOwner { kPlugin, kHost };

/// The string lists of the resources: "strings/<number>.txt" in the plug-in's folder,
/// "host/<number>.txt" in the host's. A list is read at its first use, in the language of that
/// moment: entries of "<language>/<number>.txt" beside the file replace its own. A list without a
/// file is empty.
class StringLists {
 public:
  explicit StringLists(ResourceFolders folders) : resources(std::move(folders)) {}

  /// Null for a missing entry. Throws nrvcore::FileError for a damaged file.
  const std::string* Find(ListOwner owner, int32_t number, int32_t index);

  /// Uses `list` in place of the file.
  void Replace(ListOwner owner, int32_t number, StringList list);

 private:
  ResourceFolders resources;
  std::map<std::pair<ListOwner, int32_t>, StringList> lists;
};

}  // namespace standin
