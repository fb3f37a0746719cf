#pragma once

#include <sys/types.h>

#include <boost/core/noncopyable.hpp>
#include <string>
#include <utility>

/// Owns a file descriptor; -1 if empty.
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

/// A helper program of this project in a process of its own, which the destructor kills. It has its
/// own process group, so signals of the terminal do not reach it; its error output is discarded.
class ChildProcess : boost::noncopyable {
 public:
  /// Starts `lib/tesserae/NAME` of the tree in which this program is installed. The descriptor
  /// `input`, which the caller keeps, becomes its standard input; -1 leaves that unchanged. Without
  /// an `argument` if that is empty. Throws StudioError if it cannot be started.
  ChildProcess(const std::string& name, const std::string& argument, int input);
  ~ChildProcess();

  /// The read end of the pipe to which it writes its standard output.
  int Output() const { return output.Get(); }

  /// Limits its CPU time, in seconds, unless it inherited a lower limit.
  void AllowSeconds(unsigned long seconds);

  /// Waits until it ends, and returns its exit status or the negated number of the signal that
  /// killed it. Can be called once.
  int Wait();

 private:
  pid_t process = -1;
  Descriptor output;
};
