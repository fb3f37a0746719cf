#pragma once

#include <functional>
#include <string>

namespace check {

/// How a process went that ran something apart from this one.
struct Ending {
  bool isGood = false;
  bool hung = false;   // it had to be ended, since its time was over
  std::string how;     // of one that did not end by itself; empty for all others
  std::string output;  // all that it wrote
};

/// Runs it in a process of its own, which is good when it ends by itself and has found nothing.
/// An exception that leaves it counts as a finding. Throws std::system_error where there can be no
/// process.
Ending RunApart(const std::function<void()>& run);

}  // namespace check
