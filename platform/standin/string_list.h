#pragma once

#include <cstdint>
#include <filesystem>
#include <istream>
#include <map>
#include <string>

namespace standin {

/// Texts by number. In a file an entry is a line: the index, a tab, the text in UTF-8. Indices
/// start at 1 and rise from line to line, with gaps where there is no entry; lines that are empty
/// or begin with '#' are skipped.
class StringList {
 public:
  /// `file` names the source in a ResourceError.
  static StringList Read(std::istream& stream, const std::filesystem::path& file);

  void Set(int32_t index, const std::string& text) { entries[index] = text; }
  /// Null when there is no entry.
  const std::string* Find(int32_t index) const;
  const std::map<int32_t, std::string>& Entries() const { return entries; }

 private:
  std::map<int32_t, std::string> entries;
};

}  // namespace standin
