#pragma once

#include <boost/core/noncopyable.hpp>

/// While one of these lives, SIGINT, SIGTERM and SIGHUP set a mark instead of ending the program,
/// so that it can remove what is half done. A signal that was ignored before stays so. One at a
/// time.
class Interruption : boost::noncopyable {
 public:
  Interruption();
  ~Interruption();

  bool IsRequested() const;

  /// Becomes readable on a request, for use in an event loop; -1 when no pipe could be made.
  int Descriptor() const;
};
