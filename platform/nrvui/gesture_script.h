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
  std::string target;  // the control's node ID, or the key
  std::string text;    // to enter, UTF-8
  float width = 0;     // to resize to, in points, as the height
  float height = 0;
};

/// The gestures of a UTF-8 text, one on each line; `#` starts a comment:
///
///     enter ID TEXT    click ID    key Return    key Escape    close    resize WIDTH HEIGHT
class NRV_EXPORT GestureScript {
 public:
  /// The file may be a pipe and holds at most 16 MB. Throws nrvcore::FileError with the first line
  /// that is not a gesture.
  static GestureScript ReadFile(const std::filesystem::path& path);
  /// `name` stands for the file in errors.
  static GestureScript Parse(std::string_view text, const std::string& name);

  const std::string& Name() const { return name; }
  const std::vector<Step>& Steps() const { return steps; }

 private:
  std::string name;
  std::vector<Step> steps;
};

}  // namespace nrvui::gestures
