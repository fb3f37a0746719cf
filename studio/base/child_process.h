#pragma once

#include <sys/types.h>

#include <boost/core/noncopyable.hpp>
#include <string>
#include <utility>

/// Owns a file descriptor; -1 is none.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number(number) {}
  Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number, other.number);
    return *this;
  }
  ~Descriptor();

  int Get() const { return number; }

 private:
  int number;
};

/// A program of this project that works for this process and is killed with this object. Terminal
/// signals do not reach it, and what it writes to its error output is lost.
class ChildProcess : boost::noncopyable {
 public:
  /// Starts `lib/tesserae/NAME` of the tree in which this program is installed. `input` becomes its
  /// standard input and stays the caller's; -1 is none. An empty `argument` is left out. Throws
  /// StudioError, which names the program, when it cannot be started.
  ChildProcess(const std::string& name, const std::string& argument, int input);
  ~ChildProcess();

  /// The end of a pipe from which its standard output is read.
  int Output() const { return output.Get(); }

  /// Limits its CPU time, in seconds; a limit that it inherited stays where it is lower.
  void AllowSeconds(unsigned long seconds);

  /// Waits for its end and returns its exit status, or the negative number of the signal that
  /// ended it. Can be called once.
  int Wait();

 private:
  pid_t process = -1;
  Descriptor output;
};
