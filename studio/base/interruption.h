#pragma once

/// While one of these lives, SIGINT, SIGTERM and SIGHUP set a mark instead of ending the program,
/// so that it can remove what is half done. A signal that was ignored before stays so. One at a
/// time.
class Interruption {
 public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  bool IsRequested() const;

  /// Becomes readable on a request, for use in an event loop; -1 when no pipe could be made.
  int Descriptor() const;
};
