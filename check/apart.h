#pragma once

#include <chrono>
#include <functional>
#include <string>

/// Runs checks in processes of their own. Only main.cpp uses this.
namespace check {

/// How a check ended. Texts consist of lines.
struct Ending {
  bool HasPassed() const { return findings == 0 && why.empty(); }

  bool timedOut = false;
  bool isComplete = false;  // it returned
  std::string why;          // why it failed without findings; empty otherwise
  std::string report;       // findings, and with --verbose what was done and seen
  size_t findings = 0;      // how many
  std::string steps;        // in progress when it ended
  std::string story;        // what random input did
  std::string output;       // what it wrote to standard output and error
};

/// A signal that asks this program to end, received while a check runs.
struct Interrupted {
  int signal;
};

/// Makes RunApart throw Interrupted for SIGINT, SIGTERM and SIGHUP, which are blocked from now on.
void ReceiveSignals();
/// Ends this process by the signal.
void EndBySignal(int signal);

/// Runs a check in a process of its own and ends that process, with all processes that it has
/// started, after `limit` at the latest. The check passes when it returns without a finding and
/// writes no output. Throws Interrupted, and std::system_error when no process can be started.
Ending RunApart(const std::function<void()>& run, std::chrono::seconds limit);

}  // namespace check
