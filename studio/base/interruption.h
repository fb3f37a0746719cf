#pragma once

/// While one of these lives, an interrupt or a polite request to end sets a mark instead of ending
/// the program, so that nothing half done is left behind. What was ignored before stays so. One at
/// a time.
class Interruption {
 public:
  Interruption();
  ~Interruption();
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  bool IsRequested() const;

  /// Becomes readable on a request, for those who wait for other things too; -1 when it cannot.
  int Descriptor() const;
};
