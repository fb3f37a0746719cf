#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

/// tesserae-check plays a host to a built module and reports what is wrong with it.
namespace check {

/// Of the whole run; set before the first check.
struct Settings {
  std::filesystem::path module;
  uint64_t seed = 1;             // the first of every check that is random
  std::chrono::seconds limit{};  // of each check; 0 stands for that of the form, short or long
  bool isLong = false;           // every fault at every place, and far more that is random
  bool isVerbose = false;        // reports what is tried and seen, and which operations are called
  std::string format = "text";   // or "tap"
};
inline Settings settings;

/// Adds a check: a name, which is its group, a slash and what a sound module does, and a function
/// that reports findings. Each check runs in a process of its own, in which the module has not been
/// loaded before.
using Add = std::function<void(const std::string& name, const std::function<void()>& run)>;

// The groups, each in a file of its own, in the order in which they run.
void AddFileChecks(const Add& add);
void AddStartUpChecks(const Add& add);
void AddMessageChecks(const Add& add);
void AddReportChecks(const Add& add);
void AddReloadChecks(const Add& add);
void AddDialogChecks(const Add& add);
void AddFaultChecks(const Add& add);
void AddRandomChecks(const Add& add);

/// Throws std::runtime_error unless every PT_LOAD segment lies inside the module's file. dlopen
/// does not check; a short file raises SIGBUS.
void ExpectWholeModuleFile();

/// For campaigns, from one case to the next that is played: 1 in the long form, `inShort` or, where
/// a sanitizer slows everything down, twice as much in the short one.
inline size_t Step(size_t inShort = 1) {
#ifdef __SANITIZE_ADDRESS__
  inShort *= 2;
#endif
  return settings.isLong ? 1 : inShort;
}

}  // namespace check
