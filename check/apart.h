#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace check {

/// How something ended that ran in a process of its own.
struct Ending {
  bool passed = false;  // it reported success at its end
  bool timedOut = false;
  std::string why;       // why it failed without findings; empty otherwise
  std::string findings;  // a line each
  std::string output;    // what it wrote to standard output and error, up to a limit

  bool IsGood() const { return passed && why.empty(); }
};

/// A signal that asks this program to end, received while something runs apart.
struct Interrupted {
  int signal;
};

/// Has RunApart throw Interrupted for SIGINT, SIGTERM and SIGHUP, which are blocked from now on.
void ReceiveSignals();
/// Ends this process by the signal.
void EndBySignal(int signal);

/// Runs a function in a process of its own and ends that process, with all that it has started,
/// after `limit` at the latest. The function passes when it returns without a finding: the process
/// then reports so over a pipe, with a token that only this call knows. An exception that leaves
/// the function is a finding. Throws Interrupted, and std::system_error when no process can be
/// started.
Ending RunApart(const std::function<void()>& run, std::chrono::seconds limit);

/// In such a process: sends a line to the process that started it.
void Report(const std::string& line);

}  // namespace check
