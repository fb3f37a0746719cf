#pragma once

#include <boost/core/noncopyable.hpp>

/// From now on SIGINT, SIGTERM and SIGHUP end the program at once with this exit status. Ignored
/// signals, such as SIGHUP under nohup, stay ignored.
void ExitOnSignals(int status);

/// During the lifetime of an Interruption these signals set a flag instead of ending the program,
/// so that it can remove unfinished files. Ignored signals stay ignored. Only one may exist at a
/// time.
class Interruption : boost::noncopyable {
 public:
  Interruption();
  ~Interruption();

  /// Whether a signal has arrived. Any thread may call it.
  bool IsRequested() const;

  /// A descriptor that becomes readable when a signal arrives, for use in an event loop; -1 if the
  /// pipe could not be created.
  int Descriptor() const;
};
