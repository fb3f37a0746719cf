#pragma once

namespace qtui {

/// What the widget of a field tells of the person in it.
class FieldListener {
 public:
  virtual void FieldFocused() = 0;
  /// The person has gone on to another control.
  virtual void FieldLeft() = 0;
  /// Up or down by so many steps.
  virtual void StepAsked(int) {}

 protected:
  ~FieldListener() = default;
};

}  // namespace qtui
