#pragma once

#include <cstdint>
#include <filesystem>
#include <istream>
#include <map>
#include <string>
#include <utility>

namespace standin {

/// The folders that hold a host's resources.
struct ResourceFolders {
  std::filesystem::path host;    // the host's lists, in "host", and the "translations"
  std::filesystem::path plugin;  // the plug-in's "layouts" and "strings", and its module's file

  /// The folders of the running program, relative to its own file; the build folder is laid out as
  /// an installed tree is. Relative to the current folder if the program's file is unknown.
  static ResourceFolders OfProgram();
};

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
