#pragma once

#include <boost/core/noncopyable.hpp>

/// From now on SIGINT, SIGTERM and SIGHUP end the program at once with this exit status. A signal
/// that is ignored, as nohup does with SIGHUP, stays ignored.
void ExitOnSignals(int status);

/// While an Interruption lives, these signals set a flag instead of ending the program, so that it
/// can remove unfinished files. An ignored signal stays ignored. At most one lives at a time.
class Interruption : boost::noncopyable {
 public:
  Interruption();
  ~Interruption();

  bool IsRequested() const;

  /// Becomes readable on a request, for use in an event loop; -1 when creating the pipe failed.
  int Descriptor() const;
};
