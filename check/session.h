#pragma once

#include <functional>
#include <vector>

#include "check/checked_module.h"

namespace check {

/// A host that goes on whatever happens. Whatever is disturbed on the way, a session goes on and
/// checks what must hold after each step: an answer that a caller may see, its failure shown to the
/// user, the caller's data untouched without success. Its sequences can be run again.
class Session : public CheckedModule {
 public:
  using Sequence = void (Session::*)();

  /// From start-up to shut-down: messages, an unload and a reload, and the dialog confirmed,
  /// cancelled and closed, by lengths and by percentages, with and without a source size.
  void RunLifeCycle();
  /// A host that lacks a suite at start-up, at reload and for a dialog, so that the module reports
  /// by each of its texts.
  void RunFailures();

  /// Whether everything so far went as it does when nothing is disturbed.
  bool WentAsExpected() const { return asExpected; }
  /// Ends all disturbances; what went wrong before is forgotten.
  void Restore();

  /// What a disturbed message may answer with.
  std::vector<ResultCode> allowed;
  /// Told when a call of the module begins and when it has ended.
  std::function<void(bool isInside)> onCall = [](bool) {};

 private:
  /// What a caller asks for, and what the person does then.
  struct DialogRun {
    const char* gestures;
    ResultCode expected;
    bool sizeUnavailable = false;
  };

  using Message = std::function<ResultCode(standin::Module&)>;
  void Send(const char* step, const Message& message, ResultCode expected = kSuccess);
  void Show(const DialogRun& run);
  ResultCode Call(const std::function<ResultCode()>& call);

  bool asExpected = true;
};

}  // namespace check
