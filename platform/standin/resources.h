#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <utility>

namespace standin {

/// The folders that hold a host's resources.
struct ResourceFolders {
  std::filesystem::path host;    // contains "host", the host's string lists, and "translations"
  std::filesystem::path plugin;  // contains "layouts", "strings" and the module's file

  /// The folders of the installed tree, or of the build folder with the same structure, to which
  /// the running program belongs.
  static ResourceFolders OfProgram();
};

/// Texts by index.
using StringList = std::map<int32_t, std::string>;

/// Parses a list. Each line is an entry: the index, a tab, the text in UTF-8. Indices are at least
/// 1 and ascend; they may have gaps. Empty lines and lines that begin with '#' are skipped. Throws
/// nrvcore::FileError, with the line, for any other line. `file` is for errors only.
StringList ParseStringList(const std::string& text, const std::filesystem::path& file);

enum class ListOwner { kPlugin, kHost };

/// The string lists of the resources: "strings/<number>.txt" in the plug-in's folder,
/// "host/<number>.txt" in the host's. A list is read at its first use, in the language of that
/// moment: entries of "<language>/<number>.txt" in the same folder replace those of the file. A
/// list without a file is empty.
class StringLists {
 public:
  explicit StringLists(ResourceFolders folders) : resources(std::move(folders)) {}

  /// Null for a missing entry. Throws nrvcore::FileError for a file that cannot be read or parsed.
  const std::string* Find(ListOwner owner, int32_t number, int32_t index);

  /// Uses `list` instead of the files.
  void Replace(ListOwner owner, int32_t number, StringList list);

 private:
  ResourceFolders resources;
  std::map<std::pair<ListOwner, int32_t>, StringList> lists;
};

}  // namespace standin
