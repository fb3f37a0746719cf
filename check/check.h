#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

/// tesserae-check plays a host to a module that somebody has built, and says what is wrong with it.
namespace check {

/// Of the whole run; set before the first check.
struct Settings {
  std::filesystem::path module;
  uint64_t seed = 1;             // the first of every check that is random
  std::chrono::seconds limit{};  // of each check; 0 stands for that of the form, short or long
  bool isLong = false;           // every fault at every place, and far more that is random
  bool isVerbose = false;        // says what is tried and seen, and which operations are called
};
inline Settings settings;

/// Something that a sound module does. Each check has a process of its own, in which nothing of
/// the module has been loaded before.
struct Check {
  std::string name;  // its group, a slash, and what it is about
  std::function<void()> run;
};
using Checks = std::vector<Check>;

// The groups; each has a file of its own.
Checks FileChecks();
Checks StartUpChecks();
Checks MessageChecks();
Checks ReportChecks();
Checks ReloadChecks();
Checks DialogChecks();
Checks FaultChecks();
Checks RandomChecks();

/// All of them, in the order in which they run.
Checks AllChecks();

/// For campaigns, from one case to the next that is played: 1 in the long form, `inShort` or, where
/// a sanitizer slows everything down, twice as much in the short one.
size_t Step(size_t inShort = 1);

}  // namespace check
