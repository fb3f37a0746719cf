#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/nrvcore/export.h"

namespace nrvui::gestures {

/// A line of a gesture file that cannot be read or played. `what` is "file:line: reason", without
/// the line when the whole file is meant (line 0).
class NRV_EXPORT ScriptError : public std::runtime_error {
 public:
  ScriptError(const std::string& scriptFile, std::size_t scriptLine, const std::string& why);
  ScriptError(const ScriptError& other);
  ~ScriptError() override;
};

enum class Verb { kEnter, kClick, kKey, kClose, kResize };

struct Step {
  std::size_t line;  // from 1
  Verb verb;
  std::string target;  // the control's node ID, or the key
  std::string text;    // what is entered, UTF-8
  float width = 0;     // of a resize
  float height = 0;
};

/// Gestures from a UTF-8 text, one a line, `#` starts a comment:
///
///     enter ID TEXT    click ID    key Return    key Escape    close    resize WIDTH HEIGHT
class NRV_EXPORT GestureScript {
 public:
  /// Both throw ScriptError for the first thing that they don't understand.
  static GestureScript ReadFile(const std::filesystem::path& path);
  static GestureScript Parse(std::string_view text, const std::string& name);

  const std::string& Name() const { return name; }
  const std::vector<Step>& Steps() const { return steps; }

 private:
  std::string name;
  std::vector<Step> steps;
};

}  // namespace nrvui::gestures
