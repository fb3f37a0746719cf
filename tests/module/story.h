#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "mosaic/mosaic_suite.h"
#include "platform/standin/host.h"
#include "platform/standin/module.h"

/// A life of the built module under a host, from start-up to shut-down with an unload and a reload
/// in between, and the dialog confirmed, cancelled and confirmed once more. Whatever is disturbed
/// on the way, the story goes on as a host would, and checks what must hold after each step.
class Story {
 public:
  Story();

  /// Plays it from the first line to the last. Fails the running test where the caller's data
  /// changed without success, or an answer is one that a caller may not see.
  void Play();

  /// Adds one more code that a disturbance may cause.
  void Allow(ResultCode code) { allowed.push_back(code); }
  /// Whether everything went as it does when nothing is disturbed.
  bool IsUndisturbed() const { return undisturbed; }

  standin::RecordingUserInterface person;
  standin::Host host{person};

 private:
  void Check(const char* step, ResultCode code, ResultCode expected = ResultCode::kSuccess);
  void RunDialog(const char* gestures, ResultCode expected);

  standin::Module module;
  std::vector<ResultCode> allowed;
  bool undisturbed = true;
};

/// Where the built module stands.
std::filesystem::path ModuleFile();
