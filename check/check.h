#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

/// tesserae-check acts as the host of a built module and reports its faults. Each check runs in a
/// process of its own, in which the module has not been loaded before. Files that contain checks
/// include checked_module.h, or only this one.
namespace check {

/// The command line; main.cpp sets it before the first check.
struct Settings {
  std::filesystem::path module;
  uint64_t seed = 1;             // the first seed of each random check
  std::chrono::seconds limit{};  // for each check; 0: the default
  bool isLong = false;           // every fault at every call, and far more random input
  bool isVerbose = false;        // reports each step, each call of the host and each value seen
  std::string format = "text";   // or "tap"
};
inline Settings settings;

/// Adds a check: its name, which is a group, a slash and what a sound module does, and a function
/// that reports findings.
using Add = std::function<void(const std::string& name, std::function<void()> run)>;

/// Registers checks before main.
class Registration {
 public:
  explicit Registration(std::function<void(const Add& add)> add) {
    All().push_back(std::move(add));
  }
  Registration(const char* name, void (*run)())
      : Registration([name, run](const Add& add) { add(name, run); }) {}

  /// In the order of the source files in CMakeLists.txt.
  static std::vector<std::function<void(const Add& add)>>& All() {
    static std::vector<std::function<void(const Add& add)>> all;
    return all;
  }
};

/// CHECK("group/name") { ... } defines a check and registers it.
#define CHECK(name) DEFINE_CHECK(name, __COUNTER__)
#define DEFINE_CHECK(name, number) DEFINE_NUMBERED_CHECK(name, number)
#define DEFINE_NUMBERED_CHECK(name, number)                             \
  static void Check##number();                                          \
  static const Registration kRegistration##number(name, Check##number); \
  static void Check##number()

/// Throws std::runtime_error when a segment that the loader would map is not wholly in the module's
/// file: access to the missing part raises SIGBUS.
void ExpectWholeModuleFile();

/// For campaigns, from one case to the next that is played: 1 with --long, otherwise `inShort`, and
/// twice as much with a sanitizer, which slows everything down.
inline size_t Step(size_t inShort = 1) {
#ifdef __SANITIZE_ADDRESS__
  inShort *= 2;
#endif
  return settings.isLong ? 1 : inShort;
}

}  // namespace check
