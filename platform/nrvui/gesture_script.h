#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/nrvcore/export.h"
#include "platform/nrvcore/file.h"

namespace nrvui::gestures {

enum class Verb { kEnter, kClick, kKey, kClose, kResize };

struct Step {
  std::size_t line;  // from 1
  Verb verb;
  std::string target;  // the control's node ID; for kKey the key
  std::string text;    // for kEnter, in UTF-8
  float width = 0;     // for kResize, in points
  float height = 0;
};

/// A parsed gesture file: UTF-8 text with one gesture on each line; `#` starts a comment.
///
///     enter ID TEXT    click ID    key Return    key Escape    close    resize WIDTH HEIGHT
class NRV_EXPORT GestureScript {
 public:
  /// Reads a file of at most 16 MB, which may be a pipe. Throws nrvcore::FileError for a file that
  /// cannot be read, and with the line number for the first line that is not a gesture.
  static GestureScript ReadFile(const std::filesystem::path& path);
  /// Errors contain `name` in place of the file's.
  static GestureScript Parse(std::string_view text, const std::string& name);

  const std::string& Name() const { return name; }
  const std::vector<Step>& Steps() const { return steps; }

 private:
  std::string name;
  std::vector<Step> steps;
};

}  // namespace nrvui::gestures
